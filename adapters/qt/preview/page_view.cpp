#include "qt/preview/page_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <cmath>

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

PageView::PageView(PageDocument& document, QWidget* parent)
    : QAbstractScrollArea(parent), document_(document) {
  setAccessibleName(QStringLiteral("打印页面"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  horizontalScrollBar()->setSingleStep(kLineStep);
  verticalScrollBar()->setSingleStep(kLineStep);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

const Page* PageView::ShownPage() const {
  const auto number = static_cast<std::size_t>(document_.PreviewPage());
  const bool hasPage =
      document_.GetState() == PageDocument::State::kClosed && number <= document_.Pages().size();
  return hasPage ? &document_.Pages()[number - 1] : nullptr;
}

double PageView::PixelsPerTwip() const {
  return logicalDpiX() / kTwipsPerInch * document_.Zoom() / 100;
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
  const auto place = [ratio](double room, double length, int scrolled) {
    const double free = room - length;
    const double start = free > 2 * kDeskMargin ? free / 2 : kDeskMargin - scrolled;
    return std::round(start * ratio) / ratio;
  };
  return {QPointF(place(viewport()->width(), size.width(), horizontalScrollBar()->value()),
                  place(viewport()->height(), size.height(), verticalScrollBar()->value())),
          size};
}

void PageView::FitScrollBars() {
  const QSizeF size = SheetSize();
  const auto fit = [](QScrollBar* bar, double length, int room) {
    const int needed = static_cast<int>(std::ceil(length)) + 2 * kDeskMargin;
    bar->setRange(0, length > 0 ? std::max(0, needed - room) : 0);
    bar->setPageStep(room);
  };
  fit(horizontalScrollBar(), size.width(), viewport()->width());
  fit(verticalScrollBar(), size.height(), viewport()->height());
}

void PageView::ShowChanges() {
  FitScrollBars();
  if (shownNumber_ != document_.PreviewPage()) verticalScrollBar()->setValue(0);
  shownNumber_ = document_.PreviewPage();
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

void PageView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Home) {
    verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
  } else if (event->key() == Qt::Key_End) {
    verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
  } else {
    QAbstractScrollArea::keyPressEvent(event);
  }
}

}  // namespace td
