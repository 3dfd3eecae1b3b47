#include "designer/sheet/ruler.h"

#include <QMouseEvent>
#include <QPainter>
#include <array>
#include <cmath>

#include "designer/view/words.h"

namespace td::designer {
namespace {

// The distances of the lines: the smallest that leave room for them, and how many make up one with
// a number.
struct Division {
  double millimetres;
  int numbered;
};
constexpr std::array kDivisions = {Division{0.1, 10}, Division{0.5, 10}, Division{1, 10},
                                   Division{5, 4},    Division{10, 5},   Division{50, 4}};
constexpr double kLeastDistance = 4;  // pixels between two lines

}  // namespace

Ruler::Ruler(Qt::Orientation orientation, SheetView& view, QWidget* parent)
    : QWidget(parent), orientation_(orientation), view_(view) {
  if (orientation == Qt::Horizontal) {
    setFixedHeight(kThickness);
  } else {
    setFixedWidth(kThickness);
  }
  setCursor(orientation == Qt::Horizontal ? Qt::SplitVCursor : Qt::SplitHCursor);
  setToolTip(Say("Drag a guide out of the ruler"));
}

void Ruler::PutMark(std::optional<double> twips) {
  mark_ = twips;
  update();
}

double Ruler::PixelOf(double twips) const {
  const QPointF at = view_.ToView(Point{twips, twips});
  return orientation_ == Qt::Horizontal ? at.x() : at.y();
}

void Ruler::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  const bool isAcross = orientation_ == Qt::Horizontal;
  const int length = isAcross ? width() : height();
  const double perMillimetre = view_.PixelsPerTwip() * kTwipsPerMillimetre;
  Division division = kDivisions.back();
  for (const Division& finer : kDivisions) {
    if (finer.millimetres * perMillimetre >= kLeastDistance) {
      division = finer;
      break;
    }
  }
  QFont small = font();
  small.setPixelSize(9);
  painter.setFont(small);
  painter.setPen(palette().color(QPalette::Text));
  const double zero = PixelOf(0);
  const double step = division.millimetres * perMillimetre;
  const int first = static_cast<int>(std::floor(-zero / step));
  const int last = static_cast<int>(std::ceil((length - zero) / step));
  for (int i = first; i <= last; ++i) {
    const double at = zero + i * step;
    const bool isNumbered = i % division.numbered == 0;
    const bool isMiddle = division.numbered % 2 == 0 && i % (division.numbered / 2) == 0;
    const int line = isNumbered ? kThickness : isMiddle ? 8 : 5;
    if (isAcross) {
      painter.drawLine(QPointF(at, kThickness - line), QPointF(at, kThickness));
    } else {
      painter.drawLine(QPointF(kThickness - line, at), QPointF(kThickness, at));
    }
    if (!isNumbered) continue;
    const QString number = QString::number(qRound(i * division.millimetres));
    if (isAcross) {
      painter.drawText(QPointF(at + 2, 9), number);
    } else {
      painter.save();
      painter.translate(9, at + 2);
      painter.rotate(90);
      painter.drawText(QPointF(0, 0), number);
      painter.restore();
    }
  }
  if (!mark_) return;
  painter.setPen(QPen(QColor(210, 0, 0), 1));
  const double at = PixelOf(*mark_);
  if (isAcross) {
    painter.drawLine(QPointF(at, 0), QPointF(at, kThickness));
  } else {
    painter.drawLine(QPointF(0, at), QPointF(kThickness, at));
  }
}

void Ruler::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    view_.DragGuide(orientation_, event->globalPosition().toPoint());
  }
}

void Ruler::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton)) {
    view_.DragGuide(orientation_, event->globalPosition().toPoint());
  }
}

void Ruler::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) view_.DropGuide(event->globalPosition().toPoint());
}

}  // namespace td::designer
