// The toolbar's image list: each image as shapes, so that it is sharp on every screen.
#pragma once

#include <string_view>
#include <vector>

#include "page_document/pictures.h"

namespace td {

inline constexpr int kToolbarIconSize = 17;  // pixels at 100 percent; the shapes' grid

enum class IconInk { kNone, kLine, kAccent, kWarning, kPaper };

// What an ink looks like; kNone does not occur.
[[nodiscard]] Colour ColourOf(IconInk ink, bool isEnabled);

struct IconPoint {
  double x = 0;
  double y = 0;
};

// First the inside is filled, then the outline is drawn.
struct IconShape {
  enum class Kind {
    kLine,       // from the first point to the second
    kRectangle,  // these are opposite corners
    kCircle,     // around the first point, as far as the second, which is level with it
    kPolygon,
  };
  Kind kind;
  std::vector<IconPoint> points;
  IconInk fill = IconInk::kNone;
  IconInk pen = IconInk::kNone;
  double penWidth = 1;
  bool hasRoundEnds = false;
};

// Those of a toolbar key (previouspage, nextpage, zoom, pageset, adjuct, print, exit, export), the
// lowest first; none for other keys.
[[nodiscard]] std::vector<IconShape> IconShapes(std::string_view key);

}  // namespace td
