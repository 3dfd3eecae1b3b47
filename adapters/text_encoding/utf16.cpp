#include "text_encoding/utf16.h"

#include <cstddef>

#include "text_encoding/text_repair.h"

namespace td {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighHalf(char16_t unit) {
  return (unit & 0xFC00U) == 0xD800U;
}
bool IsLowHalf(char16_t unit) {
  return (unit & 0xFC00U) == 0xDC00U;
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto tail = [character](unsigned shift) {
    return static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += {static_cast<char>(0xC0U | (character >> 6U)), tail(0)};
  } else if (character < 0x10000) {
    text += {static_cast<char>(0xE0U | (character >> 12U)), tail(6), tail(0)};
  } else {
    text += {static_cast<char>(0xF0U | (character >> 18U)), tail(12), tail(6), tail(0)};
  }
}

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
  const std::string text = ValidUtf8(utf8);
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
    const std::size_t length = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? byte(0) : byte(0) & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) character = (character << 6U) | (byte(i) & 0x3FU);
    at += length;
    if (character >= 0x10000) {
      const char32_t rest = character - 0x10000;
      result += static_cast<char16_t>(0xD800U | (rest >> 10U));
      result += static_cast<char16_t>(0xDC00U | (rest & 0x3FFU));
    } else {
      result += static_cast<char16_t>(character);
    }
  }
  return result;
}

std::string ToUtf8(std::u16string_view utf16) {
  std::string result;
  result.reserve(utf16.size());
  for (std::size_t at = 0; at < utf16.size(); ++at) {
    const char16_t unit = utf16[at];
    if (IsHighHalf(unit) && at + 1 < utf16.size() && IsLowHalf(utf16[at + 1])) {
      const char32_t high = unit & 0x3FFU;
      const char32_t low = utf16[++at] & 0x3FFU;
      AppendUtf8(result, 0x10000 + ((high << 10U) | low));
    } else if (IsHighHalf(unit) || IsLowHalf(unit)) {
      AppendUtf8(result, kReplacement);
    } else {
      AppendUtf8(result, unit);
    }
  }
  return result;
}

}  // namespace td
