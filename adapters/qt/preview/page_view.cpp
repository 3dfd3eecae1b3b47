#include "qt/preview/page_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "preview/sheet_place.h"
#include "preview/toolbar_buttons.h"
#include "qt/render/page_painter.h"

namespace td {
namespace {

constexpr int kDeskMargin = 16;  // pixels of desk around the sheet
constexpr int kShadowWidth = 4;
constexpr int kLineStep = 40;  // of an arrow key
constexpr QColor kDesk(142, 146, 151);

void DrawShadow(QPainter& painter, const QRectF& sheet) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 26));
  for (int i = 1; i <= kShadowWidth; ++i) {
    painter.drawRect(sheet.translated(1, 1).adjusted(1 - i, 1 - i, i, i));
  }
}

}  // namespace

PageView::PageView(PageDocument& document, PageViewEvents events, QWidget* parent)
    : QAbstractScrollArea(parent),
      document_(document),
      events_(std::move(events)),
      shownZoom_(document.Zoom()) {
  setAccessibleName(QString::fromUtf8(kPageViewName));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  horizontalScrollBar()->setSingleStep(kLineStep);
  verticalScrollBar()->setSingleStep(kLineStep);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

const Page* PageView::ShownPage() const {
  const auto number = static_cast<std::size_t>(document_.PreviewPage());
  return number <= document_.Pages().size() ? &document_.Pages()[number - 1] : nullptr;
}

double PageView::PixelsPerTwip() const {
  return logicalDpiX() / kTwipsPerInch * shownZoom_ / 100;
}

QSizeF PageView::SheetSize() const {
  const Page* page = ShownPage();
  return page == nullptr ? QSizeF() : QSizeF(page->width, page->height) * PixelsPerTwip();
}

// The sheet stands in the middle of a larger desk. Its corner is on whole device pixels, so that
// its lines are as sharp as in an image of the page.
QRectF PageView::SheetRect() const {
  const QSizeF size = SheetSize();
  if (size.isEmpty()) return {};
  const double ratio = devicePixelRatioF();
  const auto place = [ratio](int room, double length, int scrolled) {
    return std::round(SheetStart(length, room, kDeskMargin, scrolled) * ratio) / ratio;
  };
  return {QPointF(place(viewport()->width(), size.width(), horizontalScrollBar()->value()),
                  place(viewport()->height(), size.height(), verticalScrollBar()->value())),
          size};
}

void PageView::FitScrollBars() {
  const QSizeF size = SheetSize();
  const auto fit = [](QScrollBar* bar, double length, int room) {
    bar->setRange(0, ScrollEnd(length, room, kDeskMargin));
    bar->setPageStep(room);
  };
  fit(horizontalScrollBar(), size.width(), viewport()->width());
  fit(verticalScrollBar(), size.height(), viewport()->height());
}

QPoint PageView::Scrolled() const {
  return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void PageView::ScrollTo(const QPoint& place) {
  horizontalScrollBar()->setValue(place.x());
  verticalScrollBar()->setValue(place.y());
}

void PageView::PutZoom(double zoom) {
  const QRectF formerSheet = SheetRect();
  const double scale = zoom / std::exchange(shownZoom_, zoom);
  const QPoint scrolled(
      ScrolledAfterZoom(formerSheet.left(), scale, viewport()->width(), kDeskMargin),
      ScrolledAfterZoom(formerSheet.top(), scale, viewport()->height(), kDeskMargin));
  FitScrollBars();
  ScrollTo(scrolled);
}

void PageView::ShowChanges() {
  const int number = document_.PreviewPage();
  const bool isSamePage = std::exchange(shownNumber_, number) == number;
  if (shownZoom_ != document_.Zoom()) PutZoom(document_.Zoom());
  FitScrollBars();
  if (!isSamePage) verticalScrollBar()->setValue(0);
  viewport()->update();
}

void PageView::resizeEvent(QResizeEvent*) {
  FitScrollBars();
}

void PageView::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), kDesk);
  const Page* page = ShownPage();
  if (page == nullptr) return;
  const QRectF sheet = SheetRect();
  DrawShadow(painter, sheet);
  painter.fillRect(sheet, Qt::white);
  painter.setClipRect(sheet);
  painter.translate(sheet.topLeft());
  painter.scale(PixelsPerTwip(), PixelsPerTwip());
  DrawPage(painter, *page);
}

void PageView::PageForward() {
  QScrollBar& bar = *verticalScrollBar();
  if (bar.value() < bar.maximum()) {
    bar.triggerAction(QScrollBar::SliderPageStepAdd);
  } else {
    events_.turn(PageTurn::kNext);
  }
}

// The page before is then shown from its end.
void PageView::PageBackward() {
  QScrollBar& bar = *verticalScrollBar();
  if (bar.value() > bar.minimum()) {
    bar.triggerAction(QScrollBar::SliderPageStepSub);
    return;
  }
  const int number = document_.PreviewPage();
  events_.turn(PageTurn::kPrevious);
  if (document_.PreviewPage() != number) bar.setValue(bar.maximum());
}

bool PageView::Knows(const QKeyEvent& key) {
  constexpr std::array kKeys = {Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Space,
                                Qt::Key_Home,     Qt::Key_End,    Qt::Key_Up,
                                Qt::Key_Down,     Qt::Key_Left,   Qt::Key_Right};
  return std::ranges::find(kKeys, key.key()) != kKeys.end();
}

void PageView::keyPressEvent(QKeyEvent* event) {
  const bool isWithControl = event->modifiers().testFlag(Qt::ControlModifier);
  const bool isWithShift = event->modifiers().testFlag(Qt::ShiftModifier);
  switch (event->key()) {
    case Qt::Key_PageDown:
      PageForward();
      break;
    case Qt::Key_PageUp:
      PageBackward();
      break;
    case Qt::Key_Space:
      isWithShift ? PageBackward() : PageForward();
      break;
    case Qt::Key_Home:
      if (isWithControl) events_.turn(PageTurn::kFirst);
      verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
      break;
    case Qt::Key_End:
      if (isWithControl) events_.turn(PageTurn::kLast);
      verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
      break;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  const int turned = event->angleDelta().y();
  if (turned != 0) events_.zoom(turned > 0);
  event->accept();
}

void PageView::mousePressEvent(QMouseEvent* event) {
  const bool hasMore = verticalScrollBar()->maximum() > 0 || horizontalScrollBar()->maximum() > 0;
  if (event->button() != Qt::LeftButton || !hasMore) return;
  drag_ = Drag{event->position().toPoint(), Scrolled(), viewport()->cursor()};
  viewport()->setCursor(Qt::ClosedHandCursor);
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
  if (drag_) ScrollTo(drag_->scrolled + drag_->start - event->position().toPoint());
}

void PageView::mouseReleaseEvent(QMouseEvent* event) {
  if (!drag_ || event->button() != Qt::LeftButton) return;
  viewport()->setCursor(drag_->cursor);
  drag_.reset();
}

}  // namespace td
