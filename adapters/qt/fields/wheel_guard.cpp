#include "qt/fields/wheel_guard.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>

namespace td {
namespace {

// Fields are made late, and some by Qt itself: so it sits before the application and not on them.
class WheelGuard : public QObject {
 public:
  explicit WheelGuard(QWidget& window) : QObject(&window), window_(window) {
    for (QWidget* part : window.findChildren<QWidget*>()) LeaveFocusToClicks(*part);
    qApp->installEventFilter(this);
  }

  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() != QEvent::Polish && event->type() != QEvent::Wheel) return false;
    auto* part = qobject_cast<QWidget*>(receiver);
    if (part == nullptr || !IsField(*part) || !BelongsToWindow(part)) return false;
    if (event->type() == QEvent::Polish) {
      LeaveFocusToClicks(*part);
      return false;
    }
    if (part->hasFocus()) return false;
    event->ignore();  // what lies behind the field may still scroll
    return true;
  }

 private:
  static bool IsField(const QWidget& part) {
    return qobject_cast<const QComboBox*>(&part) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&part) != nullptr;
  }

  static void LeaveFocusToClicks(QWidget& part) {
    if (IsField(part) && part.focusPolicy() == Qt::WheelFocus) {
      part.setFocusPolicy(Qt::StrongFocus);
    }
  }

  [[nodiscard]] bool BelongsToWindow(const QWidget* part) const {
    while (part != nullptr && part != &window_) part = part->parentWidget();
    return part != nullptr;
  }

  QWidget& window_;
};

}  // namespace

void GuardFieldsAgainstWheel(QWidget& window) {
  new WheelGuard(window);
}

}  // namespace td
