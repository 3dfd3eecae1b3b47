#include "text/picture_sections.h"

#include <algorithm>
#include <optional>

#include "text/characters.h"
#include "text/date_picture.h"

namespace td {

namespace {

bool HasAny(const PictureSection& section, std::string_view characters) {
  return std::any_of(section.begin(), section.end(),
                     [characters](const PictureMark& mark) { return mark.IsOneOf(characters); });
}

std::optional<PictureKind> KindOf(const PictureSection& section) {
  if (HasAny(section, "0#")) return PictureKind::kNumber;
  if (HasAny(section, "@&<>!")) return PictureKind::kText;
  if (HasDateParts(section)) return PictureKind::kDate;
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
