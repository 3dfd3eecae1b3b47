#include "checker/text_ink.h"

#include <algorithm>
#include <set>

#include "checker/drawn_text.h"

namespace td::checker {
namespace {

// Of a font's size: how far the letters reach above and below the base line.
constexpr double kAbove = 0.82;
constexpr double kBelow = 0.12;

}  // namespace

TextInk InkOf(const BoxText& text) {
  TextInk ink;
  std::set<double> baseLines;
  for (const DrawnPiece& piece : DrawnPieces(text)) {
    if (piece.isBlank) continue;
    const double top = piece.y - kAbove * piece.fontSize;
    const double bottom = piece.y + kBelow * piece.fontSize;
    if (baseLines.empty()) {
      ink = {piece.x, top, piece.x + piece.width, bottom};
    } else {
      ink.left = std::min(ink.left, piece.x);
      ink.top = std::min(ink.top, top);
      ink.right = std::max(ink.right, piece.x + piece.width);
      ink.bottom = std::max(ink.bottom, bottom);
    }
    baseLines.insert(piece.y);
  }
  ink.lines = static_cast<int>(baseLines.size());
  return ink;
}

}  // namespace td::checker
