#include "qt/preview/preview_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QtMath>
#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "preview/toolbar_buttons.h"
#include "preview/toolbar_icons.h"
#include "qt/preview/page_number_dialog.h"
#include "qt/preview/toolbar_icons.h"
#include "qt/preview/window_font.h"
#include "text/page_text.h"
#include "windows/frame_layout.h"

namespace td {
namespace {

QKeySequence SequenceOf(const Shortcut& shortcut) {
  if (shortcut.key == 0) return {};
  const auto key = static_cast<Qt::Key>(shortcut.key);
  return QKeySequence(Qt::CTRL | (shortcut.withShift ? Qt::SHIFT : Qt::Modifier()) | key);
}

}  // namespace

PreviewWindow::PreviewWindow(PageDocument& document, PreviewEvents events)
    : QWidget(nullptr, Qt::Window),
      document_(document),
      events_(std::move(events)),
      strip_(new QWidget(this)),
      toolbar_(new QToolBar(strip_)),
      pageText_(new QLineEdit(strip_)),
      view_(new PageView(document,
                         {.turn = [this](PageTurn turn) { Turn(turn); },
                          .zoom = [this](bool isLarger) { Zoom(isLarger); }},
                         this)),
      zoomIn_(new QShortcut(this)),
      zoomOut_(new QShortcut(this)),
      heldInput_(new HeldInput(*this)) {
  setWindowTitle(QString::fromUtf8(kPreviewTitle));
  setFont(FontWithChinese(font()));
  AddButtons();
  AddPageText();
  AddShortcuts();
  UseSensibleSize();
  view_->setFocus();
}

void PreviewWindow::AddButtons() {
  toolbar_->setAccessibleName(QString::fromUtf8(kToolbarName));
  toolbar_->setIconSize(QSize(kToolbarIconSize, kToolbarIconSize));
  toolbar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  toolbar_->setMovable(false);
  for (const ToolbarButton& button : kToolbarButtons) {
    const QString caption = QString::fromUtf8(button.caption);
    QAction* action = toolbar_->addAction(ToolbarIcon(button.key), caption);
    action->setObjectName(QString::fromUtf8(button.key));
    action->setShortcut(SequenceOf(button.shortcut));
    action->setToolTip(QString::fromUtf8(button.toolTip));
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
  pageText_->setAccessibleName(QString::fromUtf8(kPageTextName));
  pageText_->setObjectName(QStringLiteral("txtPageNo"));
  pageText_->setReadOnly(true);
  pageText_->setText(QString::fromUtf8(kEmptyPageText));
  pageText_->setToolTip(QString::fromUtf8(kPageTextToolTip));
  pageText_->installEventFilter(this);
}

void PreviewWindow::AddShortcuts() {
  zoomIn_->setKeys({QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
  connect(zoomIn_, &QShortcut::activated, this, [this] { Zoom(true); });
  zoomOut_->setKeys(QKeySequence::ZoomOut);
  connect(zoomOut_, &QShortcut::activated, this, [this] { Zoom(false); });
  auto* goTo = new QShortcut(Qt::CTRL | Qt::Key_G, this);
  connect(goTo, &QShortcut::activated, this, [this] { GoToPage(); });
  // After a run that has failed it closes the window as the close box does, though the button stays
  // disabled; typed during a run it is meant for the disabled button.
  auto* escape = new QShortcut(Qt::Key_Escape, this);
  connect(escape, &QShortcut::activated, this, &QWidget::close);
  heldInput_->DropFor(*escape);
}

// As a click on the button, which does nothing if it is disabled.
void PreviewWindow::Press(std::string_view key) {
  buttons_.find(key)->second->trigger();
}

void PreviewWindow::Turn(PageTurn turn) {
  switch (turn) {
    case PageTurn::kFirst:
      ShowPage(1);
      break;
    case PageTurn::kPrevious:
      Press("previouspage");
      break;
    case PageTurn::kNext:
      Press("nextpage");
      break;
    case PageTurn::kLast:
      ShowPage(document_.PageCount());
      break;
  }
}

void PreviewWindow::Zoom(bool isLarger) {
  for (int presses = PressesToZoom(document_.Zoom(), isLarger); presses > 0; --presses) {
    Press("zoom");
  }
}

void PreviewWindow::ShowPage(std::int16_t page) {
  if (page < 1 || page > document_.PageCount()) return;
  document_.PutPreviewPage(page);
  PutPageText(PageText(page, document_.PageCount()));
}

void PreviewWindow::GoToPage() {
  if (document_.PageCount() == 0) return;
  if (const auto page = AskForPage(document_.PreviewPage(), document_.PageCount(), this)) {
    ShowPage(*page);
  }
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
  if (enabled && !button->second->isEnabled() && isVisible()) heldInput_->TakePending();
  button->second->setEnabled(enabled);
  if (key == "zoom") {
    for (QShortcut* shortcut : {zoomIn_, zoomOut_}) shortcut->setEnabled(enabled);
  }
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

// The page's keys work in the page text, too, where they would move an invisible caret. Its wish to
// have Ctrl+Home and the like before the shortcuts is not granted.
bool PreviewWindow::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver != pageText_) return false;
  if (event->type() == QEvent::ShortcutOverride) {
    event->ignore();
    return true;
  }
  if (event->type() != QEvent::KeyPress || !PageView::Knows(*static_cast<QKeyEvent*>(event))) {
    return false;
  }
  QCoreApplication::sendEvent(view_, event);
  return true;
}

// What the part with the focus has no use for.
void PreviewWindow::keyPressEvent(QKeyEvent* event) {
  if (PageView::Knows(*event)) {
    QCoreApplication::sendEvent(view_, event);
  } else {
    QWidget::keyPressEvent(event);
  }
}

// Not every window manager gives a new window the focus; the first activation comes all the same.
void PreviewWindow::showEvent(QShowEvent* event) {
  constexpr int kWaitForFocus = 300;  // milliseconds
  QWidget::showEvent(event);
  QTimer::singleShot(kWaitForFocus, this, [this] {
    if (!wasActivated_) ReportActivation();
  });
}

void PreviewWindow::ShowModal() {
  setWindowModality(Qt::ApplicationModal);
  QEventLoop loop;
  loop_ = &loop;
  show();
  activateWindow();
  loop.exec();
  loop_ = nullptr;
}

void PreviewWindow::Close() {
  hide();
  if (loop_ != nullptr) loop_->quit();
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
