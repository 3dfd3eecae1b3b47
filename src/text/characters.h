// The characters of a UTF-8 text: what a user counts as one letter, whatever its bytes. Where a
// text is no UTF-8, each byte that fits nowhere is a character of its own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace td {

// The first character of `text`, empty if there is none. The view is a part of `text`.
[[nodiscard]] std::string_view FirstCharacter(std::string_view text);

// The first character of `text`, which is taken off its start.
std::string_view TakeCharacter(std::string_view& text);

[[nodiscard]] std::size_t CharacterCount(std::string_view text);

// `text` in small or capital letters: A to Z, those of Western Europe with their accents, the basic
// Greek and Russian ones, and the full-width letters that stand among Chinese characters. All other
// characters stay, ß among them. The same on every machine, whatever its language.
[[nodiscard]] std::string InSmallLetters(std::string_view text);
[[nodiscard]] std::string InCapitals(std::string_view text);

}  // namespace td
