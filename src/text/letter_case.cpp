#include "text/letter_case.h"

#include <unordered_map>

#include "text/characters.h"

namespace td {

namespace {

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

std::string InSmallLetters(std::string_view text) {
  static const Counterparts kSmall = PairLetters(kCapitals, kSmallLetters);
  return Replaced(text, kSmall);
}

std::string InCapitals(std::string_view text) {
  static const Counterparts kCapital = PairLetters(kSmallLetters, kCapitals);
  return Replaced(text, kCapital);
}

}  // namespace td
