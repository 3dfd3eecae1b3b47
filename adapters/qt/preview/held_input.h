// Input that came while a run held the window up.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <memory>

class QEvent;
class QWidget;

namespace td {

// Keeps a person's keys and clicks until the window can act upon them again.
class HeldInput : public QObject {
 public:
  // The window owns it.
  explicit HeldInput(QWidget& window);

  // Empties the event queue. Keys and clicks for the window are kept, in their order, and are acted
  // upon when the event loop has control again: a run may still be on the stack. Those for parts
  // that are disabled at this moment are dropped, and so is the wheel, since the picture under it
  // is about to change. All else, such as painting and the close box, is delivered; timers wait.
  void TakePending();

  // Drops what would come to `receiver`, a shortcut that stays enabled for other reasons.
  void DropFor(const QObject& receiver) { dropped_ = &receiver; }

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Input {
    QPointer<QObject> receiver;
    std::unique_ptr<QEvent> event;
  };

  [[nodiscard]] bool BelongsToWindow(const QObject* object) const;
  [[nodiscard]] bool IsForNothing(const QObject* receiver, const QEvent& event) const;
  void Hold(QObject* receiver, const QEvent& event);
  void DeliverNext();

  const QWidget& window_;
  const QObject* dropped_ = nullptr;
  std::deque<Input> held_;
  QTimer delivery_;  // when the event loop has control
  bool isTaking_ = false;
  bool isDelivering_ = false;
};

}  // namespace td
