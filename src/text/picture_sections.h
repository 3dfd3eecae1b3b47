// The reading of a picture into sections and marks, the same for every kind of picture.
#pragma once

#include <string_view>
#include <vector>

namespace td {

// One character of a picture, or a literal: what followed a backslash or stood between quotes.
struct PictureMark {
  std::string_view text;
  bool literal = false;

  [[nodiscard]] bool Is(char c) const { return !literal && text.size() == 1 && text[0] == c; }
  [[nodiscard]] bool IsOneOf(std::string_view characters) const {
    return !literal && text.size() == 1 && characters.find(text[0]) != std::string_view::npos;
  }
};

using PictureSection = std::vector<PictureMark>;

enum class PictureKind { kNumber, kDate, kText };

// The sections between the semicolons, at least one. They refer to `picture`.
[[nodiscard]] std::vector<PictureSection> ReadSections(std::string_view picture);

// The kind that the first deciding mark of the picture says; marks of the other kinds are then
// characters. A picture without such a mark is for numbers.
[[nodiscard]] PictureKind KindOf(const std::vector<PictureSection>& sections);

}  // namespace td
