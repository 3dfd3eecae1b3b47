// The layout of the platform that this is built for, in what every platform tells of it.
#pragma once

#include <string>
#include <vector>

#include "page_document/drawing.h"

namespace td {

// A piece of one line in one face. Twips; `y` is the base line.
struct LaidText {
  std::string text;
  double x = 0;
  double y = 0;
  double width = 0;
  std::size_t letters = 0;  // none if the output has to shape the text
};

[[nodiscard]] std::vector<LaidText> LaidOut(const BoxText& command);
[[nodiscard]] std::vector<LaidText> LaidOut(const PointText& command);

}  // namespace td
