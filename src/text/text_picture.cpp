#include "text/text_picture.h"

#include <cstddef>

#include "text/characters.h"

namespace td {

namespace {

constexpr std::string_view kPlaces = "@&";

enum class LetterCase { kAsItIs, kSmall, kCapital };

std::string InCase(std::string_view text, LetterCase letterCase) {
  switch (letterCase) {
    case LetterCase::kSmall:
      return InSmallLetters(text);
    case LetterCase::kCapital:
      return InCapitals(text);
    case LetterCase::kAsItIs:
      break;
  }
  return std::string(text);
}

// What applies to the whole text, wherever it stands in the section.
struct Manner {
  LetterCase letterCase = LetterCase::kAsItIs;
  bool fromLeft = false;  // places that are left over lie at the end
  std::size_t places = 0;
};

Manner ReadManner(const PictureSection& section) {
  Manner manner;
  for (const PictureMark& mark : section) {
    if (mark.Is('<')) manner.letterCase = LetterCase::kSmall;
    if (mark.Is('>')) manner.letterCase = LetterCase::kCapital;
    if (mark.Is('!')) manner.fromLeft = true;
    if (mark.IsOneOf(kPlaces)) ++manner.places;
  }
  return manner;
}

// The last place takes all that is left of the text; without a place it stands at the end.
std::string WriteSection(std::string_view text, const PictureSection& section) {
  const Manner manner = ReadManner(section);
  const std::size_t length = CharacterCount(text);
  std::size_t skipped = manner.fromLeft || manner.places <= length ? 0 : manner.places - length;
  std::size_t placesLeft = manner.places;
  std::string result;
  for (const PictureMark& mark : section) {
    if (mark.IsOneOf("<>!")) continue;
    if (!mark.IsOneOf(kPlaces)) {
      result += mark.text;
      continue;
    }
    --placesLeft;
    if (skipped > 0 || text.empty()) {
      if (skipped > 0) --skipped;
      if (mark.Is('@')) result += ' ';
    } else if (placesLeft > 0) {
      result += InCase(TakeCharacter(text), manner.letterCase);
    } else {
      result += InCase(text, manner.letterCase);
    }
  }
  if (manner.places == 0) result += InCase(text, manner.letterCase);
  return result;
}

}  // namespace

std::string FormatText(std::string_view text, const std::vector<PictureSection>& sections) {
  const bool second = text.empty() && sections.size() > 1;
  return WriteSection(text, sections[second ? 1 : 0]);
}

std::string FormatNullText(const std::vector<PictureSection>& sections) {
  return sections.size() > 1 ? WriteSection({}, sections[1]) : std::string();
}

}  // namespace td
