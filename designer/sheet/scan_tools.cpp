#include "designer/sheet/scan_tools.h"

#include <QTimer>

namespace td::designer {

bool ScanMoveTool::Press(const SheetMouse& mouse) {
  if (mouse.button != Qt::LeftButton) return false;
  isDragged_ = true;
  start_ = mouse.sheet;
  former_ = view_.Aids().scan.toSheet;
  return true;
}

void ScanMoveTool::Drag(const SheetMouse& mouse) {
  if (!isDragged_) return;
  view_.Aids().scan.toSheet =
      former_ * QTransform::fromTranslate(mouse.sheet.x - start_.x, mouse.sheet.y - start_.y);
  view_.ShowAids();
}

void ScanMoveTool::Release(const SheetMouse& mouse) {
  Drag(mouse);
  isDragged_ = false;
  view_.AidsWereChanged();
}

void ScanMoveTool::Cancel() {
  if (isDragged_) {
    view_.Aids().scan.toSheet = former_;
    isDragged_ = false;
    view_.ShowAids();
  } else if (finished_) {
    // It takes the tool away, which can't happen inside the tool's own call.
    QTimer::singleShot(0, &view_, finished_);
  }
}

std::optional<Qt::CursorShape> ScanMoveTool::CursorAt(const SheetMouse& /*mouse*/) const {
  return Qt::OpenHandCursor;
}

bool ScanPointsTool::Press(const SheetMouse& mouse) {
  return mouse.button == Qt::LeftButton && count_ < pixels_.size();
}

void ScanPointsTool::Release(const SheetMouse& mouse) {
  if (count_ == pixels_.size()) return;
  const QTransform toPixels = view_.Aids().scan.toSheet.inverted();
  pixels_[count_++] = toPixels.map(QPointF(mouse.sheet.x, mouse.sheet.y));
  view_.viewport()->update();
  if (clicked_) clicked_(static_cast<int>(count_));
  if (count_ == pixels_.size()) {
    QTimer::singleShot(0, &view_, [finished = finished_, pixels = pixels_] { finished(pixels); });
  }
}

void ScanPointsTool::Cancel() {
  QTimer::singleShot(0, &view_, [finished = finished_] { finished(std::nullopt); });
}

std::optional<Qt::CursorShape> ScanPointsTool::CursorAt(const SheetMouse& /*mouse*/) const {
  return Qt::CrossCursor;
}

void ScanPointsTool::Paint(QPainter& painter) const {
  constexpr double kArm = 10;
  painter.setPen(QPen(QColor(210, 0, 0), 1));
  for (std::size_t i = 0; i < count_; ++i) {
    const QPointF place = view_.Aids().scan.toSheet.map(pixels_[i]);
    const QPointF at = view_.ToView(Point{place.x(), place.y()});
    painter.drawLine(at - QPointF(kArm, 0), at + QPointF(kArm, 0));
    painter.drawLine(at - QPointF(0, kArm), at + QPointF(0, kArm));
    painter.drawText(at + QPointF(4, -4), QString::number(i + 1));
  }
}

}  // namespace td::designer
