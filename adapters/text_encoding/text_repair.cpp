#include "text_encoding/text_repair.h"

#include <cstddef>

namespace td {
namespace {

// Length of the valid character at the start of a text that is not empty, 0 if there is none.
std::size_t CharacterLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return 0;
  }
  // Overlong forms, surrogates and numbers above U+10FFFF show in the second byte.
  if (first == 0xE0 && byte(1) < 0xA0) return 0;
  if (first == 0xED && byte(1) > 0x9F) return 0;
  if (first == 0xF0 && byte(1) < 0x90) return 0;
  if (first == 0xF4 && byte(1) > 0x8F) return 0;
  return length;
}

// Bytes at the start of a text that are valid.
std::size_t ValidLength(std::string_view text) {
  std::size_t valid = 0;
  for (;;) {
    while (valid < text.size() && static_cast<unsigned char>(text[valid]) < 0x80) ++valid;
    if (valid == text.size()) break;
    const std::size_t length = CharacterLength(text.substr(valid));
    if (length == 0) break;
    valid += length;
  }
  return valid;
}

}  // namespace

bool IsValidUtf8(std::string_view text) {
  return ValidLength(text) == text.size();
}

std::string ValidUtf8(std::string_view text) {
  std::string result;
  for (;;) {
    const std::size_t valid = ValidLength(text);
    result += text.substr(0, valid);
    if (valid == text.size()) return result;
    result += "\uFFFD";
    text.remove_prefix(valid + 1);
  }
}

}  // namespace td
