#include "text/characters.h"

#include <unordered_map>

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

// The letters of both stand in the same order.
constexpr std::string_view kSmallLetters =
    "abcdefghijklmnopqrstuvwxyz"
    "ａｂｃｄｅｆｇｈｉｊｋｌｍｎｏｐｑｒｓｔｕｖｗｘｙｚ"
    "àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"
    "αβγδεζηθικλμνξοπρστυφχψω"
    "абвгдеёжзийклмнопрстуфхцчшщъыьэюя";
constexpr std::string_view kCapitals =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    "ＡＢＣＤＥＦＧＨＩＪＫＬＭＮＯＰＱＲＳＴＵＶＷＸＹＺ"
    "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ"
    "ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩ"
    "АБВГДЕЁЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ";

using Counterparts = std::unordered_map<std::string_view, std::string_view>;

Counterparts PairLetters(std::string_view from, std::string_view to) {
  Counterparts counterparts;
  while (!from.empty()) {
    const std::string_view letter = TakeCharacter(from);
    counterparts.emplace(letter, TakeCharacter(to));
  }
  return counterparts;
}

std::string Replaced(std::string_view text, const Counterparts& counterparts) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::string_view character = TakeCharacter(text);
    const auto found = counterparts.find(character);
    result += found == counterparts.end() ? character : found->second;
  }
  return result;
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

std::string InSmallLetters(std::string_view text) {
  static const Counterparts kSmall = PairLetters(kCapitals, kSmallLetters);
  return Replaced(text, kSmall);
}

std::string InCapitals(std::string_view text) {
  static const Counterparts kCapital = PairLetters(kSmallLetters, kCapitals);
  return Replaced(text, kCapital);
}

}  // namespace td
