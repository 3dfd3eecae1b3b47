// Where the sheet lies in its view: zoom and scrolling.
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "designer/sheet/sheet_view.h"

namespace td::designer {
namespace {

constexpr int kDeskLeft = 28;  // pixels of desk around the sheet: the bands stand there
constexpr int kDeskRight = 100;
constexpr int kDeskTop = 20;

}  // namespace

double SheetView::PixelsPerTwip() const {
  return logicalDpiX() / kTwipsPerInch * zoom_ / 100;
}

QRectF SheetView::SheetRect() const {
  const auto shown = static_cast<std::size_t>(page_);
  const double width = shown < picture_.pages.size() ? picture_.pages[shown].width : layout_.width;
  const double height =
      shown < picture_.pages.size() ? picture_.pages[shown].height : layout_.height;
  const QSizeF size = QSizeF(width, height) * PixelsPerTwip();
  const double ratio = devicePixelRatioF();
  const auto place = [ratio](double room, double length, int before, int behind, int scrolled) {
    const double free = room - length - before - behind;
    const double start = free > 0 ? before + free / 2 : before - scrolled;
    return std::round(start * ratio) / ratio;
  };
  return {QPointF(place(viewport()->width(), size.width(), kDeskLeft, kDeskRight,
                        horizontalScrollBar()->value()),
                  place(viewport()->height(), size.height(), kDeskTop, kDeskTop,
                        verticalScrollBar()->value())),
          size};
}

QPointF SheetView::ToView(Point onSheet) const {
  return SheetRect().topLeft() + QPointF(onSheet.x, onSheet.y) * PixelsPerTwip();
}

QRectF SheetView::ToView(const designer::Box& onSheet) const {
  return {ToView(Point{onSheet.left, onSheet.top}),
          QSizeF(onSheet.width, onSheet.height) * PixelsPerTwip()};
}

Point SheetView::ToSheet(QPointF inView) const {
  const QPointF place = (inView - SheetRect().topLeft()) / PixelsPerTwip();
  return {place.x(), place.y()};
}

void SheetView::FitScrollBars() {
  const QSizeF size = SheetRect().size();
  const auto fit = [](QScrollBar* bar, double length, int desk, int room) {
    bar->setRange(0, std::max(0, static_cast<int>(std::floor(length)) + desk - room));
    bar->setPageStep(room);
  };
  fit(horizontalScrollBar(), size.width(), kDeskLeft + kDeskRight, viewport()->width());
  fit(verticalScrollBar(), size.height(), 2 * kDeskTop, viewport()->height());
}

void SheetView::PutZoom(double percent, std::optional<QPointF> fixed) {
  const QPointF kept = fixed.value_or(QRectF(viewport()->rect()).center());
  const Point under = ToSheet(kept);
  zoom_ = std::clamp(percent, kLeastZoom, kMostZoom);
  FitScrollBars();
  const QPointF now = ToView(under);
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(now.x() - kept.x()));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(now.y() - kept.y()));
  Renew();
}

void SheetView::FitSheet() {
  BeFresh();
  const QSizeF size = SheetRect().size() / zoom_;
  if (size.isEmpty()) return;
  PutZoom(std::min((viewport()->width() - kDeskLeft - kDeskRight) / size.width(),
                   (viewport()->height() - 2 * kDeskTop) / size.height()));
}

void SheetView::FitWidth() {
  BeFresh();
  const double width = SheetRect().width() / zoom_;
  if (width > 0) PutZoom((viewport()->width() - kDeskLeft - kDeskRight) / width);
}

void SheetView::ScrollTo(const designer::Box& box) {
  const QRectF seen = ToView(box);
  const auto scroll = [](QScrollBar* bar, double start, double end, int room) {
    constexpr int kAround = 40;
    if (start < kAround) bar->setValue(bar->value() + qRound(start) - kAround);
    if (end > room - kAround) bar->setValue(bar->value() + qRound(end) - room + kAround);
  };
  scroll(horizontalScrollBar(), seen.left(), seen.right(), viewport()->width());
  scroll(verticalScrollBar(), seen.top(), seen.bottom(), viewport()->height());
}

Point SheetView::Middle() const {
  const QRectF seen = SheetRect() & QRectF(viewport()->rect());
  return ToSheet(seen.isEmpty() ? SheetRect().center() : seen.center());
}

}  // namespace td::designer
