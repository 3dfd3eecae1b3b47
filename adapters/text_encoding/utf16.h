// Text as the drivers take and give it.
#pragma once

#include <string>
#include <string_view>

namespace td {

// Bytes that are no valid UTF-8, and halves of a character that stand alone, become U+FFFD.
[[nodiscard]] std::u16string ToUtf16(std::string_view utf8);
[[nodiscard]] std::string ToUtf8(std::u16string_view utf16);

}  // namespace td
