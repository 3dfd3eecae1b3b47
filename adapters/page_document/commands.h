// The drawing commands: what every output draws, and nothing else.
//
// Lengths are twips (1,440 to the inch) from the top left corner of the page as it is drawn, that
// is with width and height already swapped on a landscape sheet. Font sizes are points. Texts are
// UTF-8. Every number is finite and within kMaxCoordinate.
#pragma once

#include <compare>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "platform/pictures.h"

namespace td {

inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerMillimetre = kTwipsPerInch / 25.4;
inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kMaxCoordinate = 10'000'000;

struct TextFont {
  std::string name = "Arial";  // as the caller wrote it: an output maps it to an installed family
  double points = 11.25;
  bool bold = false;
  bool italic = false;
  auto operator<=>(const TextFont&) const = default;  // NOLINT(modernize-use-nullptr): its 0
};
// Never empty. Commands with the same font share one object within a document.
using FontRef = std::shared_ptr<const TextFont>;

enum class TextAlignment : unsigned char { kLeft, kCentre, kRight };

// Text in a box, centred vertically. It breaks at its line breaks, of which one at its end begins
// no line; with `wordWrap` it breaks inside the width, too. A line that is wider than the box is
// neither cut nor moved.
struct BoxText {
  std::string text;
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  bool wordWrap = false;
  TextAlignment alignment = TextAlignment::kLeft;
  FontRef font;
};

struct TextRun {
  std::string text;  // holds no line break
  FontRef font;
};
using TextLine = std::vector<TextRun>;

// Paragraphs, texts and rich texts at a point: the lines stand below each other from `y`, and each
// starts at `x`, is centred on it or ends there. `heights` holds the height of each line.
struct PointText {
  std::vector<TextLine> lines;
  std::vector<double> heights;
  double x = 0;
  double y = 0;
  TextAlignment alignment = TextAlignment::kLeft;
};

// A black line of `penWidth`, its middle on the two points. Its ends are square: they reach half a
// pen's width beyond the points, so that two lines of one width that meet at a corner close it
// without a step.
struct Line {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  double penWidth = 0;
};

// A picture stretched over a box; its proportions are not kept. A box with no area shows nothing.
struct PlacedPicture {
  PictureRef picture;  // an ImagePicture or a VectorPicture
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

using DrawingCommand = std::variant<BoxText, PointText, Line, PlacedPicture>;

}  // namespace td
