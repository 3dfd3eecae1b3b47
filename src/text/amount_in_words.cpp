#include "text/amount_in_words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/standard_failures.h"
#include "text/decimal_digits.h"

namespace td {

namespace {

constexpr int kDecimals = 2;

// Unit of the integer digit with as many digits to its right as the letter's index; a digit
// further left has no unit.
constexpr std::string_view kUnitLetters = ".sbqwsbqysbqwsbq";

constexpr std::array<std::pair<char, std::string_view>, 19> kFinalCharacters{{
    {'0', "零"}, {'1', "壹"}, {'2', "贰"}, {'3', "叁"}, {'4', "肆"}, {'5', "伍"}, {'6', "陆"},
    {'7', "柒"}, {'8', "捌"}, {'9', "玖"}, {'s', "拾"}, {'b', "佰"}, {'q', "仟"}, {'w', "万"},
    {'y', "亿"}, {'.', "圆"}, {'j', "角"}, {'z', "整"}, {'f', "分"},
}};

// One pass from left to right; what was put in is not searched again.
std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  std::size_t at = 0;
  for (std::size_t found = text.find(from); found != std::string_view::npos;
       found = text.find(from, at)) {
    result += text.substr(at, found - at);
    result += to;
    at = found + from.size();
  }
  result += text.substr(at);
  return result;
}

std::string DigitsWithUnits(std::string_view integerDigits) {
  std::string text;
  for (std::size_t i = 0; i < integerDigits.size(); ++i) {
    text += integerDigits[i];
    const std::size_t digitsToTheRight = integerDigits.size() - 1 - i;
    if (digitsToTheRight < kUnitLetters.size()) text += kUnitLetters[digitsToTheRight];
  }
  return text;
}

std::string DecimalsWithUnits(std::string_view decimals) {
  if (decimals == "00") return "z";
  return {decimals[0], 'j', decimals[1], 'f'};
}

std::string CollapseZeros(std::string text) {
  while (text.find("00") != std::string::npos) text = Replace(text, "00", "0");
  return text;
}

// What is no letter of the table is final already.
std::string InFinalCharacters(std::string_view text) {
  std::string result;
  for (const char c : text) {
    const auto* const found =
        std::find_if(kFinalCharacters.begin(), kFinalCharacters.end(),
                     [c](const auto& replacement) { return replacement.first == c; });
    if (found == kFinalCharacters.end()) {
      result += c;
    } else {
      result += found->second;
    }
  }
  return result;
}

}  // namespace

std::string AmountInWords(double amount) {
  if (!std::isfinite(amount)) throw OverflowFailure();
  const DecimalDigits rounded = RoundToPlaces(ReadDecimal(std::fabs(amount)), kDecimals);
  const std::string integerDigits = IntegerDigits(rounded);
  std::string text =
      DigitsWithUnits(integerDigits) + DecimalsWithUnits(FractionDigits(rounded, kDecimals));

  for (const std::string_view lowUnit : {"0q", "0b", "0s"}) text = Replace(text, lowUnit, "0");
  // Before the zeros collapse: a zero fen ends the amount, a zero jiao is spoken.
  text = Replace(text, "0f", "整");
  text = CollapseZeros(std::move(text));
  text = Replace(text, "0y", "y");
  text = Replace(text, "0w", "w");
  // An amount under one yuan has no yuan at all.
  text = Replace(text, "0.", integerDigits.size() == 1 ? "" : ".");
  // The sign is that of the amount passed in, even if it rounds to zero.
  return (amount < 0.0 ? "(负)" : "") + InFinalCharacters(text);
}

}  // namespace td
