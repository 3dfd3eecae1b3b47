// Selecting, moving and resizing items with the mouse.
#pragma once

#include <optional>

#include "designer/sheet/sheet_tool.h"
#include "designer/sheet/sheet_view.h"

namespace td::designer {

class ItemTool : public SheetTool {
 public:
  explicit ItemTool(SheetView& view) : view_(view) {}

  bool Press(const SheetMouse& mouse) override;
  void Drag(const SheetMouse& mouse) override;
  void Release(const SheetMouse& mouse) override;
  void Cancel() override;
  [[nodiscard]] std::optional<Qt::CursorShape> CursorAt(const SheetMouse& mouse) const override;
  void Paint(QPainter& painter) const override;

 private:
  enum class State { kIdle, kPressed, kMoving, kResizing, kCatching };

  void BeginMoving();
  void MoveTo(const SheetMouse& mouse);
  void ResizeTo(const SheetMouse& mouse);
  [[nodiscard]] SnapOptions Snapping(const SheetMouse& mouse) const;
  [[nodiscard]] Box CaughtArea() const;

  SheetView& view_;
  State state_ = State::kIdle;
  SheetMouse start_;
  SheetMouse now_;
  ItemId pressedItem_ = 0;
  bool wasSelected_ = false;  // the pressed item, before
  DraggedEdges edges_;
  Box box_;                     // of the selection at the start, as it is seen
  std::optional<Box> placed_;   // where a single item is stored at the start
  std::optional<Box> first_;    // around several items at the start, in the layout of a first page
  std::optional<Box> resized_;  // and as it was resized last
  SnapLines lines_;
  SnapResult snapped_;
  std::uint64_t gesture_ = 0;
};

}  // namespace td::designer
