// Where the lines and letters of a text lie. The same for every output.
#pragma once

#include <string>
#include <vector>

#include "page_document/drawing.h"
#include "page_document/pictures.h"
#include "render/font_faces.h"

namespace td {

// A piece of one line in one face. Twips; `y` is the base line.
struct PlacedText {
  FaceRef face = nullptr;
  std::string text;  // UTF-8
  double x = 0;
  double y = 0;
  double width = 0;
  // One for each character, side by side. Empty if the text has to be shaped, or if its characters
  // have to be searched in other fonts than its own: the output then draws `text` as a whole.
  std::vector<const FaceGlyph*> glyphs;
};

[[nodiscard]] std::vector<PlacedText> LayOut(const BoxText& command);
[[nodiscard]] std::vector<PlacedText> LayOut(const PointText& command);
[[nodiscard]] std::vector<PlacedText> LayOut(const VectorPicture::Text& line);

}  // namespace td
