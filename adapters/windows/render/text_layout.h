// Where the lines and letters of a text lie. The same for every output.
#pragma once

#include <string>
#include <vector>

#include "page_document/drawing.h"
#include "page_document/pictures.h"
#include "page_outputs/text_measures.h"
#include "windows/render/font_faces.h"

namespace td {

// A piece of one line in one face. Twips; `y` is the base line.
struct PlacedText {
  FaceRef face;
  std::wstring text;
  double x = 0;
  double y = 0;
  double width = 0;
  // One for each unit of the text, that of the second half of a pair being 0. Empty if the text has
  // to be shaped: the output then draws it as the system does.
  std::vector<double> advances;
};

[[nodiscard]] std::vector<PlacedText> LayOut(const BoxText& command);
[[nodiscard]] std::vector<PlacedText> LayOut(const PointText& command);
[[nodiscard]] std::vector<PlacedText> LayOut(const VectorPicture::Text& line);

}  // namespace td
