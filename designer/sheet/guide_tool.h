// Dragging guides: out of the rulers, across the sheet, and off it to remove them.
#pragma once

#include <optional>

#include "designer/sheet/sheet_tool.h"
#include "designer/sheet/sheet_view.h"

namespace td::designer {

class GuideTool : public SheetTool {
 public:
  explicit GuideTool(SheetView& view) : view_(view) {}

  // A new one, dragged from a ruler. Across is a line from left to right.
  void Begin(Qt::Orientation orientation);

  bool Press(const SheetMouse& mouse) override;
  void Drag(const SheetMouse& mouse) override;
  void Release(const SheetMouse& mouse) override;
  void Cancel() override;
  [[nodiscard]] std::optional<Qt::CursorShape> CursorAt(const SheetMouse& mouse) const override;

 private:
  struct Guide {
    Qt::Orientation orientation;
    std::size_t index;
  };
  [[nodiscard]] std::optional<Guide> GuideAt(QPointF place) const;
  [[nodiscard]] std::vector<double>& Guides(Qt::Orientation orientation) const;
  void RemoveDragged();

  SheetView& view_;
  std::optional<Guide> dragged_;
  std::optional<double> former_;  // where it lay; nothing for a new one
};

}  // namespace td::designer
