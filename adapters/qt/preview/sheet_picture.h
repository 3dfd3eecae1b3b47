// A small picture of a sheet with its margins.
#pragma once

#include <QWidget>

#include "preview/page_setup_choice.h"

namespace td {

class SheetPicture : public QWidget {
 public:
  explicit SheetPicture(QWidget* parent = nullptr);

  // The sheet as it is read, landscape or portrait. A sheet without an area shows nothing.
  void Show(const PaperExtent& sheet, const SheetMargins& margins);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSizeF sheet_;
  SheetMargins margins_;
};

}  // namespace td
