#include "qt/preview/held_input.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <utility>

#include "qt/preview/page_view.h"

namespace td {
namespace {

bool IsKeyOrClick(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
      return true;
    default:
      return false;
  }
}

bool IsOtherInput(QEvent::Type type) {
  return type == QEvent::Wheel || type == QEvent::ContextMenu;
}

// A shortcut that is enabled comes as such: a key like that which comes as a key was meant for a
// disabled one, and sent again later it would find it enabled.
bool IsDisabledShortcut(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  const bool isShortcut = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
  return isShortcut && !PageView::Knows(key);
}

// A shortcut's receiver is no widget, but its parent is one.
const QWidget* WidgetOf(const QObject* object) {
  while (object != nullptr && !object->isWidgetType()) object = object->parent();
  return qobject_cast<const QWidget*>(object);
}

}  // namespace

// It looks at what widgets get and not at what the window of the window system gets, which so
// learns of buttons that are let go.
HeldInput::HeldInput(QWidget& window) : QObject(&window), window_(window) {
  qApp->installEventFilter(this);
  delivery_.setSingleShot(true);
  connect(&delivery_, &QTimer::timeout, this, [this] { DeliverNext(); });
}

void HeldInput::TakePending() {
  constexpr int kMostRounds = 10;  // one event brings the next, and some never end
  const bool wasDelivering = std::exchange(isDelivering_, false);  // of what began this run
  isTaking_ = true;
  auto& dispatcher = *QAbstractEventDispatcher::instance();
  for (int round = 0; round < kMostRounds; ++round) {
    if (!dispatcher.processEvents(QEventLoop::X11ExcludeTimers)) break;
  }
  isTaking_ = false;
  isDelivering_ = wasDelivering;
}

// What comes while something is held waits behind it.
bool HeldInput::eventFilter(QObject* receiver, QEvent* event) {
  if (isDelivering_ || (!isTaking_ && held_.empty())) return false;
  const QEvent::Type type = event->type();
  if (!IsKeyOrClick(type) && !IsOtherInput(type)) return false;
  if (!BelongsToWindow(receiver)) return false;
  if (!isTaking_ && IsOtherInput(type)) return false;
  if (IsKeyOrClick(type) && !IsForNothing(receiver, *event)) Hold(receiver, *event);
  return true;
}

bool HeldInput::BelongsToWindow(const QObject* object) const {
  const QWidget* widget = WidgetOf(object);
  return widget != nullptr && widget->window() == &window_;
}

bool HeldInput::IsForNothing(const QObject* receiver, const QEvent& event) const {
  const auto* widget = qobject_cast<const QWidget*>(receiver);
  return receiver == dropped_ || IsDisabledShortcut(event) ||
         (widget != nullptr && !widget->isEnabled());
}

void HeldInput::Hold(QObject* receiver, const QEvent& event) {
  if (held_.empty()) delivery_.start(0);
  held_.push_back({receiver, std::unique_ptr<QEvent>(event.clone())});
}

// One at a time: the first may open a dialog, before which the others would not have reached the
// window.
void HeldInput::DeliverNext() {
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal != nullptr && modal != &window_) held_.clear();
  if (held_.empty()) return;
  const Input next = std::move(held_.front());
  held_.pop_front();
  if (!held_.empty()) delivery_.start(0);
  if (next.receiver.isNull()) return;
  const bool wasDelivering = std::exchange(isDelivering_, true);
  QCoreApplication::sendEvent(next.receiver, next.event.get());
  isDelivering_ = wasDelivering;
}

}  // namespace td
