#include <QString>

#include "checker/drawn_text.h"
#include "qt/render/fonts.h"
#include "qt/render/text_layout.h"

namespace td::checker {

std::vector<DrawnPiece> DrawnPieces(const BoxText& text) {
  std::vector<DrawnPiece> pieces;
  for (const PlacedText& piece : LayOut(text)) {
    const bool isBlank = QString::fromStdString(piece.text).trimmed().isEmpty();
    pieces.push_back({piece.x, piece.y, piece.width, piece.face->size, isBlank});
  }
  return pieces;
}

bool HasFont(const std::string& name) {
  return FontTable::Instance().Serves(name);
}

std::string StandInFont(const std::string& name) {
  const QStringList families = FontTable::Instance().Families(name);
  return families.isEmpty() ? std::string() : families.front().toStdString();
}

}  // namespace td::checker
