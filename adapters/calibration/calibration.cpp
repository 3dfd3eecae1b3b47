#include "calibration/calibration.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace td {
namespace {

constexpr double kUsualDistance = 20;  // of a cross
constexpr double kDegrees = 180 / std::numbers::pi;
constexpr double kPerCent = 100;

double DistanceOnSide(double side) {
  constexpr double kLargestPart = 0.2;
  return std::min(kUsualDistance, std::floor(side * kLargestPart));
}

bool IsSide(double twips) {
  const double side = twips / kTwipsPerMillimetre;
  return side >= kSmallestSide && side <= kLargestSide;
}

bool AreOnSheet(const Distances& distances, const Distances& sheet) {
  const auto isOnSide = [](double distance, double side) {
    return std::isfinite(distance) && distance > 0 && distance < side / 2;
  };
  return isOnSide(distances.across, sheet.across) && isOnSide(distances.along, sheet.along);
}

// The three crosses' places in twips, from their distances to the nearest edges.
std::array<PlanePoint, 3> PlacesOf(const Distances& sheet, const Distances& topLeft,
                                   const Distances& topRight, const Distances& bottomLeft) {
  std::array<PlanePoint, 3> places = {
      PlanePoint{topLeft.across, topLeft.along},
      PlanePoint{sheet.across - topRight.across, topRight.along},
      PlanePoint{bottomLeft.across, sheet.along - bottomLeft.along}};
  for (PlanePoint& place : places) {
    place.x *= kTwipsPerMillimetre;
    place.y *= kTwipsPerMillimetre;
  }
  return places;
}

// From a page that lies across its sheet to the upright sheet.
AffineMap Turned(const Page& page, LandscapeTurn turn) {
  // A sheet is as wide as the page is high.
  if (turn == LandscapeTurn::kTopLeft) return {0, 1, -1, 0, 0, page.width};
  return {0, -1, 1, 0, page.height, 0};
}

}  // namespace

bool CanCalibrate(const PaperExtent& sheet) {
  return IsSide(sheet.width) && IsSide(sheet.height);
}

Distances CrossesOf(const PaperExtent& sheet) {
  const Distances sides = MillimetresOf(sheet);
  return {DistanceOnSide(sides.across), DistanceOnSide(sides.along)};
}

Distances MillimetresOf(const PaperExtent& sheet) {
  const auto millimetres = [](double twips) {
    constexpr double kParts = 1000;
    return std::round(twips / kTwipsPerMillimetre * kParts) / kParts;
  };
  return {millimetres(sheet.width), millimetres(sheet.height)};
}

PaperExtent SheetOf(const Calibration& calibration) {
  return {calibration.sheet.across * kTwipsPerMillimetre,
          calibration.sheet.along * kTwipsPerMillimetre};
}

std::optional<AffineMap> MapOf(const Calibration& calibration) {
  const auto& [printer, sheet, asked, topLeft, topRight, bottomLeft] = calibration;
  if (!CanCalibrate(SheetOf(calibration))) return std::nullopt;
  for (const Distances& distances : {asked, topLeft, topRight, bottomLeft}) {
    if (!AreOnSheet(distances, sheet)) return std::nullopt;
  }
  return MapBetween(PlacesOf(sheet, asked, asked, asked),
                    PlacesOf(sheet, topLeft, topRight, bottomLeft));
}

Distortion DistortionOf(const AffineMap& map) {
  const double turnAcross = std::atan2(map.yx, map.xx) * kDegrees;
  const double turnAlong = std::atan2(-map.xy, map.yy) * kDegrees;
  return {.shiftAcross = map.dx / kTwipsPerMillimetre,
          .shiftAlong = map.dy / kTwipsPerMillimetre,
          .turn = turnAcross,
          .skew = turnAcross - turnAlong,
          .stretchAcross = (std::hypot(map.xx, map.yx) - 1) * kPerCent,
          .stretchAlong = (std::hypot(map.xy, map.yy) - 1) * kPerCent};
}

bool IsPlausible(const Distortion& distortion) {
  return std::hypot(distortion.shiftAcross, distortion.shiftAlong) <= kLargestShift &&
         std::abs(distortion.turn) <= kLargestTurn && std::abs(distortion.skew) <= kLargestTurn &&
         std::abs(distortion.stretchAcross) <= kLargestStretch &&
         std::abs(distortion.stretchAlong) <= kLargestStretch;
}

std::optional<AffineMap> PlausibleMap(const Calibration& calibration) {
  const std::optional<AffineMap> map = MapOf(calibration);
  return map && IsPlausible(DistortionOf(*map)) ? map : std::nullopt;
}

AffineMap CorrectionOn(const Page& page, const AffineMap& printed, LandscapeTurn turn) {
  const AffineMap onSheet = InverseOf(printed).value_or(AffineMap{});
  if (!page.landscape) return onSheet;
  const AffineMap toSheet = Turned(page, turn);
  return Combined(*InverseOf(toSheet), Combined(onSheet, toSheet));
}

}  // namespace td
