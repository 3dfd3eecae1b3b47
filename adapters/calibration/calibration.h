// How a printer misses the places on a sheet, and what makes up for it.
#pragma once

#include <optional>
#include <string>

#include "page_document/affine_map.h"
#include "page_document/drawing.h"

namespace td {

// Millimetres, along the sheet's width and along its height.
struct Distances {
  double across = 0;
  double along = 0;
};

// What was measured on a test page. All distances are those of a cross's middle from the two edges
// of the paper that are nearest to it.
struct Calibration {
  std::string printer;
  Distances sheet;  // its sides, as it is fed, upright
  Distances asked;  // where the test page has its crosses
  Distances topLeft;
  Distances topRight;
  Distances bottomLeft;
};

// How a printer misses, in words for people.
struct Distortion {
  double shiftAcross = 0;  // of the sheet's top left corner, millimetres to the right
  double shiftAlong = 0;   // and down
  double turn = 0;         // of what is printed across the sheet, degrees clockwise
  double skew = 0;  // degrees by which a right angle misses: how much less it turns along the sheet
  double stretchAcross = 0;  // per cent; negative: it comes out smaller
  double stretchAlong = 0;
};

// Sides that a test page can be made for, millimetres.
inline constexpr double kSmallestSide = 25;
inline constexpr double kLargestSide = 3000;
[[nodiscard]] bool CanCalibrate(const PaperExtent& sheet);

// How far a test page has its crosses from the edges of a sheet: two centimetres, less on small
// sheets.
[[nodiscard]] Distances CrossesOf(const PaperExtent& sheet);

// To the thousandth.
[[nodiscard]] Distances MillimetresOf(const PaperExtent& sheet);
[[nodiscard]] PaperExtent SheetOf(const Calibration& calibration);

// What the printer does to a place, twips from the top left corner of the upright sheet: exact for
// the three crosses. Nothing for distances that no page could show.
[[nodiscard]] std::optional<AffineMap> MapOf(const Calibration& calibration);

[[nodiscard]] Distortion DistortionOf(const AffineMap& map);

// More than any printer misses by: then a distance was misread. 20 mm, 3 degrees, 5 per cent.
inline constexpr double kLargestShift = 20;
inline constexpr double kLargestTurn = 3;
inline constexpr double kLargestStretch = 5;
[[nodiscard]] bool IsPlausible(const Distortion& distortion);

// The map of a calibration that is in order; nothing otherwise.
[[nodiscard]] std::optional<AffineMap> PlausibleMap(const Calibration& calibration);

// How a page that lies across its sheet is laid on it: with its top at the sheet's left edge or at
// its right one.
enum class LandscapeTurn { kTopLeft, kTopRight };

// Where a page must be drawn, twips of the page, so that a printer that maps by `printed` puts it
// where it belongs.
[[nodiscard]] AffineMap CorrectionOn(const Page& page, const AffineMap& printed,
                                     LandscapeTurn turn);

}  // namespace td
