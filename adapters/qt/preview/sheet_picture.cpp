#include "qt/preview/sheet_picture.h"

#include <QPainter>
#include <algorithm>

namespace td {

SheetPicture::SheetPicture(QWidget* parent) : QWidget(parent) {
  setFixedSize(150, 150);
  setAccessibleName(QString::fromUtf8(page_setup_words::kPictureName));
}

void SheetPicture::Show(const PaperExtent& sheet, const SheetMargins& margins) {
  sheet_ = QSizeF(sheet.width, sheet.height);
  margins_ = margins;
  update();
}

void SheetPicture::paintEvent(QPaintEvent*) {
  if (sheet_.isEmpty()) return;
  constexpr double kRoom = 8;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale =
      std::min((width() - 2 * kRoom) / sheet_.width(), (height() - 2 * kRoom) / sheet_.height());
  QRectF sheet(QPointF(), sheet_ * scale);
  sheet.moveCenter(QRectF(rect()).center());

  painter.fillRect(sheet.translated(2, 2), QColor(0, 0, 0, 60));
  painter.setPen(QColor(96, 96, 96));
  painter.setBrush(Qt::white);
  painter.drawRect(sheet);

  const QRectF inner = sheet.adjusted(margins_.left * scale, margins_.top * scale,
                                      -margins_.right * scale, -margins_.bottom * scale);
  if (inner.width() <= 0 || inner.height() <= 0) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0, 95, 184), 1, Qt::DashLine));
  painter.drawRect(inner);
  // A few lines of text show which way the sheet is read.
  constexpr double kLineDistance = 9;
  painter.setPen(QColor(190, 190, 190));
  for (double y = inner.top() + kLineDistance; y < inner.bottom() - 3; y += kLineDistance) {
    painter.drawLine(QPointF(inner.left() + 5, y), QPointF(inner.right() - 5, y));
  }
}

}  // namespace td
