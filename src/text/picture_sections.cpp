#include "text/picture_sections.h"

#include <algorithm>
#include <cstddef>
#include <optional>

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

std::string_view FirstCodePoint(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  std::size_t length = 1;
  if (lead >= 0xF0) {
    length = 4;
  } else if (lead >= 0xE0) {
    length = 3;
  } else if (lead >= 0xC0) {
    length = 2;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
      return text.substr(0, 1);
    }
  }
  return text.substr(0, length);
}

std::vector<PictureSection> ReadSections(std::string_view picture) {
  std::vector<PictureSection> sections(1);
  while (!picture.empty()) {
    PictureMark mark{FirstCodePoint(picture)};
    picture.remove_prefix(mark.text.size());
    if (mark.Is(';')) {
      sections.emplace_back();
      continue;
    }
    if (mark.Is('\\')) {
      mark = {picture.empty() ? picture : FirstCodePoint(picture), true};
      picture.remove_prefix(mark.text.size());
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
