// Where the letters of a text lie.
#pragma once

#include "page_document/commands.h"

namespace td::checker {

// Twips. Empty texts have no lines and lie nowhere.
struct TextInk {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  int lines = 0;
};

// As the outputs lay the text out. Heights are those of the letters, without what a line leaves
// free above and below them.
[[nodiscard]] TextInk InkOf(const BoxText& text);

}  // namespace td::checker
