// What helps to lay a format out and is never printed: the scan of the form, and guides.
#pragma once

#include <QImage>
#include <QPointF>
#include <QTransform>
#include <array>

#include "designer/model/snapping.h"

namespace td::designer {

// A picture under the sheet. `toSheet` turns its pixels into twips of the sheet.
struct Scan {
  QImage image;
  QTransform toSheet;
  double opacity = 0.5;  // 0 to 1
  bool isShown = true;

  [[nodiscard]] bool Empty() const { return image.isNull(); }
};

struct SheetAids {
  Scan scan;
  SnapLines guides;
};

// At the size that the file states, its corner in that of the sheet; a file that states none, or a
// size far from the sheet's, fills the width of the sheet.
[[nodiscard]] QTransform NaturalPlacing(const QImage& image, double sheetWidth, double sheetHeight);

// Upright at a size in twips, its corner where it was.
[[nodiscard]] QTransform PlacingBySize(const Scan& scan, double width, double height);

// What three points of the form are known to be: the first two lie in one horizontal line, the
// first and the third in one vertical line. Twips.
struct KnownPoints {
  QPointF first;      // on the sheet
  double across = 0;  // from the first to the second
  double down = 0;    // from the first to the third
};

// Lays the scan so that three of its pixels come upon the known points: turned, stretched and
// sheared as it takes. False, and nothing has changed, when the points lie in one line.
bool PlaceByPoints(Scan& scan, const std::array<QPointF, 3>& pixels, const KnownPoints& known);

}  // namespace td::designer
