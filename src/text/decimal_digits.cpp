#include "text/decimal_digits.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>

namespace td {

namespace {

void TrimZeros(DecimalDigits& number) {
  const std::size_t first = number.digits.find_first_not_of('0');
  if (first == std::string::npos) {
    number = DecimalDigits{};
    return;
  }
  number.digits.erase(number.digits.find_last_not_of('0') + 1);
  number.digits.erase(0, first);
  number.point -= static_cast<int>(first);
}

// Adds one to the last digit; a carry out of the first digit becomes a new first digit.
void Increment(DecimalDigits& number) {
  for (std::size_t i = number.digits.size(); i-- > 0;) {
    if (number.digits[i] != '9') {
      ++number.digits[i];
      return;
    }
    number.digits[i] = '0';
  }
  number.digits.insert(0, 1, '1');
  ++number.point;
}

std::string ScientificText(const DecimalDigits& number) {
  std::string text = number.digits.substr(0, 1);
  if (number.digits.size() > 1) text += "." + number.digits.substr(1);
  const int exponent = number.point - 1;
  text += exponent < 0 ? "E-" : "E+";
  return text + PaddedNumber(std::abs(exponent), 2);
}

std::string FixedText(const DecimalDigits& number) {
  std::string text = IntegerDigits(number);
  const int places = static_cast<int>(number.digits.size()) - number.point;
  if (places > 0) text += "." + FractionDigits(number, places);
  return text;
}

}  // namespace

DecimalDigits ReadDecimal(double number, int significant) {
  std::array<char, 40> buffer{};
  char* const begin = buffer.data();
  const auto written = std::to_chars(begin, begin + buffer.size(), std::fabs(number),
                                     std::chars_format::scientific, significant - 1);
  // The form is d.ddde±xx.
  DecimalDigits result;
  result.negative = std::signbit(number);
  const char* at = begin;
  for (; at != written.ptr && *at != 'e'; ++at) {
    if (*at != '.') result.digits += *at;
  }
  ++at;
  if (*at == '+') ++at;
  int exponent = 0;
  std::from_chars(at, written.ptr, exponent);
  result.point = exponent + 1;
  TrimZeros(result);
  return result;
}

DecimalDigits ReadWhole(std::int64_t number) {
  DecimalDigits result;
  result.negative = number < 0;
  result.digits = std::to_string(number).substr(result.negative ? 1 : 0);
  result.point = static_cast<int>(result.digits.size());
  TrimZeros(result);
  return result;
}

DecimalDigits RoundToPlaces(const DecimalDigits& number, int places) {
  const int kept = number.point + places;
  if (kept < 0) return {};
  const auto count = static_cast<std::size_t>(kept);
  if (count >= number.digits.size()) return number;
  DecimalDigits result{number.negative, number.digits.substr(0, count), number.point};
  if (number.digits[count] >= '5') Increment(result);
  TrimZeros(result);
  return result;
}

std::string IntegerDigits(const DecimalDigits& number) {
  if (number.point <= 0) return "0";
  std::string digits = number.digits.substr(0, static_cast<std::size_t>(number.point));
  digits.resize(static_cast<std::size_t>(number.point), '0');
  return digits;
}

std::string FractionDigits(const DecimalDigits& number, int places) {
  std::string digits;
  for (int i = 0; i < places; ++i) {
    const int index = number.point + i;
    const bool present = index >= 0 && static_cast<std::size_t>(index) < number.digits.size();
    digits += present ? number.digits[static_cast<std::size_t>(index)] : '0';
  }
  return digits;
}

std::string GeneralNumber(const DecimalDigits& number) {
  constexpr int kSmallestFixedPoint = -3;  // 0.0001
  constexpr int kLargestFixedPoint = 15;   // below 1E+15
  const bool fixed = number.point >= kSmallestFixedPoint && number.point <= kLargestFixedPoint;
  return (number.negative ? "-" : "") + (fixed ? FixedText(number) : ScientificText(number));
}

std::string PaddedNumber(int number, std::size_t width) {
  std::string digits = std::to_string(number);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

}  // namespace td
