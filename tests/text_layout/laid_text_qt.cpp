#include "laid_text.h"
#include "render/text_layout.h"

namespace td {
namespace {

std::vector<LaidText> ToldOf(const std::vector<PlacedText>& placed) {
  std::vector<LaidText> told;
  for (const PlacedText& text : placed) {
    told.push_back({text.text, text.x, text.y, text.width, text.glyphs.size()});
  }
  return told;
}

}  // namespace

std::vector<LaidText> LaidOut(const BoxText& command) {
  return ToldOf(LayOut(command));
}

std::vector<LaidText> LaidOut(const PointText& command) {
  return ToldOf(LayOut(command));
}

}  // namespace td
