// Text as the system takes it, and as the component holds it (UTF-8).
#pragma once

#include <string>
#include <string_view>

#include "text_encoding/utf16.h"

namespace td {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the system's wide text is UTF-16");

// Bytes that are no valid UTF-8, and halves of a character that stand alone, become U+FFFD.
[[nodiscard]] inline std::wstring ToWide(std::string_view utf8) {
  const std::u16string units = ToUtf16(utf8);
  return {units.begin(), units.end()};
}

[[nodiscard]] inline std::string FromWide(std::wstring_view wide) {
  return ToUtf8({reinterpret_cast<const char16_t*>(wide.data()), wide.size()});
}

}  // namespace td
