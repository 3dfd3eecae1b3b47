// Letters as small and capital ones: A to Z, those of Western Europe with their accents, the basic
// Greek and Russian ones, and the full-width letters that stand among Chinese characters. The same
// on every machine, whatever its language.
#pragma once

#include <string>
#include <string_view>

namespace td {

// `text` (UTF-8) in small or capital letters. All other characters stay, ß among them.
[[nodiscard]] std::string InSmallLetters(std::string_view text);
[[nodiscard]] std::string InCapitals(std::string_view text);

}  // namespace td
