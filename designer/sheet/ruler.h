// A ruler in millimetres beside the sheet.
#pragma once

#include <QWidget>
#include <optional>

#include "designer/sheet/sheet_view.h"

namespace td::designer {

// Guides are dragged out of it.
class Ruler : public QWidget {
 public:
  static constexpr int kThickness = 22;  // pixels

  Ruler(Qt::Orientation orientation, SheetView& view, QWidget* parent = nullptr);

  // The place of the mouse on the sheet, along the ruler.
  void PutMark(std::optional<double> twips);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  [[nodiscard]] double PixelOf(double twips) const;

  Qt::Orientation orientation_;
  SheetView& view_;
  std::optional<double> mark_;
};

}  // namespace td::designer
