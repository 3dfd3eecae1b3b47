#include "designer/sheet/sheet_aids.h"

#include <cmath>

#include "designer/model/lengths.h"

namespace td::designer {

QTransform NaturalPlacing(const QImage& image, double sheetWidth, double sheetHeight) {
  const double perPixelX = 1000.0 / image.dotsPerMeterX() * kTwipsPerMillimetre;
  const double perPixelY = 1000.0 / image.dotsPerMeterY() * kTwipsPerMillimetre;
  const double widths = image.width() * perPixelX / sheetWidth;
  const double heights = image.height() * perPixelY / sheetHeight;
  constexpr double kNear = 1.5;
  const auto isNear = [](double times) { return times < kNear && times > 1 / kNear; };
  if (isNear(widths) && isNear(heights)) return QTransform::fromScale(perPixelX, perPixelY);
  const double filling = sheetWidth / image.width();
  return QTransform::fromScale(filling, filling);
}

QTransform PlacingBySize(const Scan& scan, double width, double height) {
  const QPointF corner = scan.toSheet.map(QPointF(0, 0));
  return QTransform::fromScale(width / scan.image.width(), height / scan.image.height()) *
         QTransform::fromTranslate(corner.x(), corner.y());
}

bool PlaceByPoints(Scan& scan, const std::array<QPointF, 3>& pixels, const KnownPoints& known) {
  const QPointF across = pixels[1] - pixels[0];
  const QPointF down = pixels[2] - pixels[0];
  const double area = across.x() * down.y() - across.y() * down.x();
  const double lengths = std::hypot(across.x(), across.y()) * std::hypot(down.x(), down.y());
  constexpr double kLeastSine = 0.05;  // about three degrees
  if (lengths == 0 || std::abs(area) < kLeastSine * lengths) return false;
  if (known.across == 0 || known.down == 0) return false;
  // From pixels into the parts of the two distances, and on to the sheet.
  const QTransform fromParts(across.x(), across.y(), down.x(), down.y(), pixels[0].x(),
                             pixels[0].y());
  const QTransform toKnown(known.across, 0, 0, known.down, known.first.x(), known.first.y());
  scan.toSheet = fromParts.inverted() * toKnown;
  return true;
}

}  // namespace td::designer
