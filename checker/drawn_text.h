// How the outputs of this desktop write texts.
#pragma once

#include <string>
#include <vector>

#include "page_document/commands.h"

namespace td::checker {

// A piece of one line. Twips; `y` is the base line.
struct DrawnPiece {
  double x = 0;
  double y = 0;
  double width = 0;
  double fontSize = 0;
  bool isBlank = false;  // nothing of it is seen
};

[[nodiscard]] std::vector<DrawnPiece> DrawnPieces(const BoxText& text);

// Whether the machine has a font that is meant by the name, and the family that stands in where it
// hasn't; empty on a machine without fonts.
[[nodiscard]] bool HasFont(const std::string& name);
[[nodiscard]] std::string StandInFont(const std::string& name);

}  // namespace td::checker
