// The wheel of a mouse, for tests of real windows.
#pragma once

#include <QApplication>
#include <QWheelEvent>
#include <QWidget>

namespace td {

// One notch towards the user, over the middle of the field.
inline void TurnWheelOver(QWidget& field) {
  constexpr int kNotchDown = -120;
  const QPointF place = field.rect().center();
  QWheelEvent event(place, field.mapToGlobal(place), {}, {0, kNotchDown}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&field, &event);
}

}  // namespace td
