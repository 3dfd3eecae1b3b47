#include "qt/preview/dropped_input.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace td {
namespace {

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
      return true;
    default:
      return false;
  }
}

// Works on the widgets and not on the window of the window system, which so learns of buttons that
// are let go.
class InputFilter : public QObject {
 public:
  explicit InputFilter(const QWidget& window) : window_(window) { qApp->installEventFilter(this); }

  bool eventFilter(QObject* receiver, QEvent* event) override {
    return IsInput(event->type()) && BelongsToWindow(receiver);
  }

 private:
  // A shortcut's receiver is no widget, but its parent is one.
  [[nodiscard]] bool BelongsToWindow(const QObject* object) const {
    while (object != nullptr && object != &window_) object = object->parent();
    return object != nullptr;
  }

  const QWidget& window_;
};

}  // namespace

void DropPendingInput(const QWidget& window) {
  constexpr int kMostRounds = 10;  // one event brings the next, and some never end
  const InputFilter filter(window);
  auto& dispatcher = *QAbstractEventDispatcher::instance();
  for (int round = 0; round < kMostRounds; ++round) {
    if (!dispatcher.processEvents(QEventLoop::X11ExcludeTimers)) return;
  }
}

}  // namespace td
