// Fonts of a few glyphs, made from their outlines.
#pragma once

#include <QPainterPath>
#include <string>
#include <vector>

namespace td {

// Units of a TrueTypeGlyph and of the fonts that are made, in an em.
inline constexpr int kTrueTypeEm = 2048;

struct TrueTypeGlyph {
  QPainterPath outline;  // y downwards from the base line
  double advance = 0;
};

// A TrueType font with these glyphs, in this order, and the tables that documents need in which
// fonts are embedded. `ascent` and `descent` are above and below the base line.
[[nodiscard]] std::string TrueTypeFont(const std::vector<TrueTypeGlyph>& glyphs, double ascent,
                                       double descent);

}  // namespace td
