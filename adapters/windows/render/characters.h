// The characters of a text whose pairs of units are whole.
#pragma once

#include <cstddef>
#include <string_view>

namespace td {

// A character and how many units it takes.
struct Character {
  char32_t code;
  std::size_t units;
};

[[nodiscard]] inline Character CharacterAt(std::wstring_view text, std::size_t at) {
  const char32_t first = text[at];
  if (first < 0xD800 || first > 0xDBFF || at + 1 == text.size()) return {first, 1};
  return {0x10000 + ((first & 0x3FFU) << 10U) + (text[at + 1] & 0x3FFU), 2};
}

// Tells `visit` each character and its units, from the first one on.
template <typename Visit>
void ForEachCharacter(std::wstring_view text, const Visit& visit) {
  for (std::size_t at = 0; at < text.size();) {
    const Character character = CharacterAt(text, at);
    visit(character.code, text.substr(at, character.units));
    at += character.units;
  }
}

}  // namespace td
