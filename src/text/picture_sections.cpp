#include "text/picture_sections.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "text/characters.h"
#include "text/date_picture.h"

namespace td {

namespace {

// Points, commas and percent signs decide nothing: a picture of numbers has a place anyway, and
// texts in front of a date or a text hold them, too.
std::optional<PictureKind> KindOf(const PictureSection& section) {
  for (std::size_t at = 0; at < section.size(); ++at) {
    if (section[at].IsOneOf("0#")) return PictureKind::kNumber;
    if (section[at].IsOneOf("@&<>!")) return PictureKind::kText;
    if (BeginsDatePart(section, at)) return PictureKind::kDate;
  }
  return std::nullopt;
}

}  // namespace

std::vector<PictureSection> ReadSections(std::string_view picture) {
  std::vector<PictureSection> sections(1);
  while (!picture.empty()) {
    PictureMark mark{TakeCharacter(picture)};
    if (mark.Is(';')) {
      sections.emplace_back();
      continue;
    }
    if (mark.Is('\\')) {
      mark = {TakeCharacter(picture), true};
    } else if (mark.Is('"')) {
      mark = {picture.substr(0, picture.find('"')), true};
      picture.remove_prefix(std::min(mark.text.size() + 1, picture.size()));
    }
    sections.back().push_back(mark);
  }
  return sections;
}

PictureKind KindOf(const std::vector<PictureSection>& sections) {
  for (const PictureSection& section : sections) {
    if (const auto kind = KindOf(section)) return *kind;
  }
  return PictureKind::kNumber;
}

}  // namespace td
