// Placing the scan with the mouse: dragging it, and clicking points of it.
#pragma once

#include <array>
#include <functional>

#include "designer/sheet/sheet_tool.h"
#include "designer/sheet/sheet_view.h"

namespace td::designer {

class ScanMoveTool : public SheetTool {
 public:
  // `finished` comes when the user wants to do something else.
  ScanMoveTool(SheetView& view, std::function<void()> finished)
      : view_(view), finished_(std::move(finished)) {}

  bool Press(const SheetMouse& mouse) override;
  void Drag(const SheetMouse& mouse) override;
  void Release(const SheetMouse& mouse) override;
  void Cancel() override;
  [[nodiscard]] std::optional<Qt::CursorShape> CursorAt(const SheetMouse& mouse) const override;

 private:
  SheetView& view_;
  std::function<void()> finished_;
  bool isDragged_ = false;
  Point start_;
  QTransform former_;
};

// Takes three clicks on points of the scan.
class ScanPointsTool : public SheetTool {
 public:
  using Pixels = std::array<QPointF, 3>;
  // `clicked` is told how many points there are, after each; `finished` gets them when they are
  // three, or nothing when the user gave up.
  ScanPointsTool(SheetView& view, std::function<void(int points)> clicked,
                 std::function<void(std::optional<Pixels>)> finished)
      : view_(view), clicked_(std::move(clicked)), finished_(std::move(finished)) {}

  bool Press(const SheetMouse& mouse) override;
  void Drag(const SheetMouse&) override {}
  void Release(const SheetMouse& mouse) override;
  void Cancel() override;
  [[nodiscard]] std::optional<Qt::CursorShape> CursorAt(const SheetMouse& mouse) const override;
  void Paint(QPainter& painter) const override;

 private:
  SheetView& view_;
  std::function<void(int)> clicked_;
  std::function<void(std::optional<Pixels>)> finished_;
  Pixels pixels_;
  std::size_t count_ = 0;
};

}  // namespace td::designer
