#include "text/characters.h"

namespace td {

namespace {

std::size_t LengthByLead(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  if (byte >= 0xF0) return 4;
  if (byte >= 0xE0) return 3;
  return byte >= 0xC0 ? 2 : 1;
}

bool Continues(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

std::string_view FirstCharacter(std::string_view text) {
  if (text.empty()) return text;
  const std::size_t length = LengthByLead(text[0]);
  for (std::size_t i = 1; i < length; ++i) {
    if (i >= text.size() || !Continues(text[i])) return text.substr(0, 1);
  }
  return text.substr(0, length);
}

std::string_view TakeCharacter(std::string_view& text) {
  const std::string_view first = FirstCharacter(text);
  text.remove_prefix(first.size());
  return first;
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) TakeCharacter(text);
  return count;
}

}  // namespace td
