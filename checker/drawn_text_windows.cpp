#include <algorithm>
#include <cwctype>

#include "checker/drawn_text.h"
#include "windows/api/wide_text.h"
#include "windows/render/font_table.h"
#include "windows/render/text_layout.h"

namespace td::checker {

std::vector<DrawnPiece> DrawnPieces(const BoxText& text) {
  std::vector<DrawnPiece> pieces;
  for (const PlacedText& piece : LayOut(text)) {
    const bool isBlank =
        std::ranges::all_of(piece.text, [](wchar_t unit) { return std::iswspace(unit) != 0; });
    pieces.push_back({piece.x, piece.y, piece.width, piece.face->size, isBlank});
  }
  return pieces;
}

bool HasFont(const std::string& name) {
  return FontTable::Instance().Serves(name);
}

std::string StandInFont(const std::string& name) {
  const auto families = FontTable::Instance().Families(name);
  return families.empty() ? std::string() : FromWide(families.front()->name);
}

}  // namespace td::checker
