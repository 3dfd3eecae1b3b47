#include "qt/preview/preview_window.h"

#include <QCloseEvent>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QtMath>
#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "qt/preview/dropped_input.h"
#include "qt/preview/toolbar_icons.h"
#include "qt/preview/window_font.h"
#include "text/page_text.h"
#include "windows/frame_layout.h"

namespace td {
namespace {

struct Button {
  const char* caption;
  const char* key;
  bool isLastOfGroup;
  QKeySequence::StandardKey shortcut;
};

const std::array<Button, 7> kButtons = {{
    {"上页", "previouspage", false, QKeySequence::MoveToPreviousPage},
    {"下页", "nextpage", true, QKeySequence::MoveToNextPage},
    {"缩放", "zoom", true, QKeySequence::UnknownKey},
    {"页面", "pageset", false, QKeySequence::UnknownKey},
    {"微调", "adjuct", true, QKeySequence::UnknownKey},
    {"打印", "print", true, QKeySequence::Print},
    {"关闭", "exit", false, QKeySequence::UnknownKey},
}};

}  // namespace

PreviewWindow::PreviewWindow(PageDocument& document, PreviewEvents events)
    : QWidget(nullptr, Qt::Window),
      events_(std::move(events)),
      strip_(new QWidget(this)),
      toolbar_(new QToolBar(strip_)),
      pageText_(new QLineEdit(strip_)),
      view_(new PageView(document, this)) {
  setWindowTitle(QStringLiteral("打印预览"));
  setFont(FontWithChinese(font()));
  AddButtons();
  AddPageText();
  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, &QWidget::close);
  UseSensibleSize();
  view_->setFocus();
}

void PreviewWindow::AddButtons() {
  toolbar_->setAccessibleName(QStringLiteral("工具栏"));
  toolbar_->setIconSize(QSize(kToolbarIconSize, kToolbarIconSize));
  toolbar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  toolbar_->setMovable(false);
  for (const Button& button : kButtons) {
    const QString caption = QString::fromUtf8(button.caption);
    QAction* action = toolbar_->addAction(ToolbarIcon(button.key), caption);
    action->setObjectName(QString::fromUtf8(button.key));
    if (button.shortcut != QKeySequence::UnknownKey) action->setShortcut(button.shortcut);
    connect(action, &QAction::triggered, this,
            [this, key = button.key] { events_.buttonPressed(key); });
    QWidget* widget = toolbar_->widgetForAction(action);
    widget->setAccessibleName(caption);
    widget->setFocusPolicy(Qt::TabFocus);
    buttons_.emplace(button.key, action);
    if (button.isLastOfGroup) toolbar_->addSeparator();
  }
}

void PreviewWindow::AddPageText() {
  pageText_->setFont(FontWithFamilies(font(), "宋体"));
  pageText_->setAccessibleName(QStringLiteral("页码"));
  pageText_->setObjectName(QStringLiteral("txtPageNo"));
  pageText_->setReadOnly(true);
  pageText_->setText(QStringLiteral("第    页 共    页"));
}

double PreviewWindow::PixelsPerTwip() const {
  return logicalDpiX() / kTwipsPerInch;
}

QSize PreviewWindow::PageTextSize() const {
  constexpr int kBesideText = 4;  // pixels between the frame and the text
  constexpr auto kLastPage = std::numeric_limits<std::int16_t>::max();
  const auto widthOf = [this](const std::string& text) {
    return pageText_->fontMetrics().horizontalAdvance(QString::fromStdString(text));
  };
  const int width = std::max(widthOf(kReadingText), widthOf(PageText(kLastPage, kLastPage)));
  const int frame =
      pageText_->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, pageText_);
  return {width + 2 * (frame + kBesideText), pageText_->sizeHint().height()};
}

// Large enough for most of a page and for all buttons, and smaller than the screen.
void PreviewWindow::UseSensibleSize() {
  constexpr double kPartOfScreen = 0.85;
  const QSize available = screen()->availableGeometry().size();
  const QSize usual = (available * kPartOfScreen).boundedTo(QSize(1100, 900));
  const int besideToolbar =
      qCeil(kTwipsBesideToolbarBand * PixelsPerTwip()) + PageTextSize().width();
  const int forButtons = toolbar_->sizeHint().width() + besideToolbar;
  resize(std::min(std::max(usual.width(), forButtons), available.width()), usual.height());
}

void PreviewWindow::EnableButton(std::string_view key, bool enabled) {
  const auto button = buttons_.find(key);
  if (button == buttons_.end()) return;
  if (enabled && !button->second->isEnabled() && isVisible()) DropPendingInput(*this);
  button->second->setEnabled(enabled);
  if (isVisible()) toolbar_->repaint();
}

void PreviewWindow::PutPageText(const std::string& text) {
  pageText_->setText(QString::fromStdString(text));
  pageText_->setCursorPosition(0);
  if (isVisible()) pageText_->repaint();
}

void PreviewWindow::PutPointer(std::int32_t shape) {
  view_->viewport()->setCursor(shape == kWaitingPointer ? Qt::WaitCursor : Qt::ArrowCursor);
}

// Called from the event loop, so that the window has been drawn before a long run begins.
void PreviewWindow::ReportActivation() {
  if (!isVisible()) return;
  wasActivated_ = true;
  events_.activated();
}

bool PreviewWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) {
    QTimer::singleShot(0, this, [this] { ReportActivation(); });
  }
  return QWidget::event(event);
}

// Not every window manager gives a new window the focus; the first activation comes all the same.
void PreviewWindow::showEvent(QShowEvent* event) {
  constexpr int kWaitForFocus = 300;  // milliseconds
  QWidget::showEvent(event);
  QTimer::singleShot(kWaitForFocus, this, [this] {
    if (!wasActivated_) ReportActivation();
  });
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  events_.closed();
}

void PreviewWindow::resizeEvent(QResizeEvent*) {
  LayOutParts();
}

void PreviewWindow::LayOutParts() {
  const double pixelsPerTwip = PixelsPerTwip();
  const auto pixels = [pixelsPerTwip](double twips) { return qRound(twips * pixelsPerTwip); };
  const int stripHeight = toolbar_->sizeHint().height();
  const QSize textSize = PageTextSize();
  const FrameLayout layout = LayOutFrame({.innerWidth = width() / pixelsPerTwip,
                                          .innerHeight = height() / pixelsPerTwip,
                                          .stripTop = 0,
                                          .stripHeight = stripHeight / pixelsPerTwip,
                                          .pageBoxWidth = textSize.width() / pixelsPerTwip});

  strip_->setGeometry(0, 0, pixels(layout.stripWidth), stripHeight);
  view_->setGeometry(pixels(layout.surfaceLeft), pixels(layout.surfaceTop),
                     pixels(layout.surfaceWidth), pixels(layout.surfaceHeight));
  pageText_->setGeometry(pixels(layout.pageBoxLeft), (stripHeight - textSize.height()) / 2,
                         textSize.width(), textSize.height());
  toolbar_->setGeometry(0, 0, pixels(layout.toolbarBandWidth), stripHeight);
}

}  // namespace td
