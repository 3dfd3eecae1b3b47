// Where the lines and letters of a text lie. The same for every output.
#pragma once

#include <QString>
#include <vector>

#include "page_document/drawing.h"
#include "page_document/pictures.h"
#include "render/font_faces.h"

namespace td {

// A piece of one line in one face. Twips; `y` is the base line.
struct PlacedText {
  FaceRef face;
  QString text;
  double x = 0;
  double y = 0;
  double width = 0;
  // One for each character. Empty if the text has to be shaped, or if its characters have to be
  // searched in other fonts than its own: the output then draws `text` as a whole.
  std::vector<quint32> glyphs;
  std::vector<double> advances;
};

[[nodiscard]] std::vector<PlacedText> LayOut(const BoxText& command);
[[nodiscard]] std::vector<PlacedText> LayOut(const PointText& command);
[[nodiscard]] std::vector<PlacedText> LayOut(const VectorPicture::Text& line);

}  // namespace td
