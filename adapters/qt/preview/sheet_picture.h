// A small picture of a sheet with its margins.
#pragma once

#include <QWidget>

namespace td {

struct SheetMargins {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

class SheetPicture : public QWidget {
 public:
  explicit SheetPicture(QWidget* parent = nullptr);

  // All in one unit of length; the sheet as it is read, landscape or portrait. A sheet without an
  // area shows nothing.
  void Show(const QSizeF& sheet, const SheetMargins& margins);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSizeF sheet_;
  SheetMargins margins_;
};

}  // namespace td
