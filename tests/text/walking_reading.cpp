#include "walking_reading.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace td {

namespace {

constexpr std::array<std::string_view, 10> kDigits{"零", "壹", "贰", "叁", "肆",
                                                   "伍", "陆", "柒", "捌", "玖"};

std::string_view UnitOf(std::size_t digitsToTheRight) {
  constexpr std::array<std::string_view, 4> kLow{"", "拾", "佰", "仟"};
  constexpr std::array<std::string_view, 4> kHigh{"圆", "万", "亿", "万"};
  return digitsToTheRight % 4 == 0 ? kHigh[digitsToTheRight / 4] : kLow[digitsToTheRight % 4];
}

bool IsHighUnit(std::size_t digitsToTheRight) {
  return digitsToTheRight % 4 == 0;
}

struct Cents {
  unsigned long long yuan = 0;
  unsigned cents = 0;
};

// Prints 15 significant digits in the plain form and rounds at the third decimal.
Cents RoundedHalfUp(double amount) {
  if (amount == 0) return {};
  const int digitsBeforePoint = static_cast<int>(std::floor(std::log10(amount))) + 1;
  const int places = std::max(15 - digitsBeforePoint, 0);
  std::array<char, 400> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.*f", places, amount);
  std::string written = buffer.data();
  if (written.find('.') == std::string::npos) written += '.';
  written += "000";
  const std::size_t point = written.find('.');
  Cents result;
  result.yuan = std::stoull(written.substr(0, point));
  result.cents = static_cast<unsigned>(std::stoul(written.substr(point + 1, 2)));
  if (written[point + 3] >= '5') ++result.cents;
  if (result.cents == 100) {
    ++result.yuan;
    result.cents = 0;
  }
  return result;
}

std::string YuanWords(unsigned long long yuan) {
  if (yuan == 0) return {};
  const std::string digits = std::to_string(yuan);
  std::string words;
  bool zeroPending = false;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    const std::size_t right = digits.size() - 1 - i;
    const auto digit = static_cast<std::size_t>(digits[i] - '0');
    if (digit == 0) {
      // A high unit is spoken even where its whole group is zero, and swallows the zeros.
      zeroPending = !IsHighUnit(right);
      if (IsHighUnit(right)) words += UnitOf(right);
      continue;
    }
    if (zeroPending) words += "零";
    zeroPending = false;
    words += kDigits[digit];
    words += UnitOf(right);
  }
  return words;
}

std::string CentWords(unsigned cents) {
  if (cents == 0) return "整";
  std::string words = std::string(kDigits[cents / 10]) + "角";
  if (cents % 10 == 0) return words + "整";
  return words + std::string(kDigits[cents % 10]) + "分";
}

}  // namespace

std::string WalkingReading(double amount) {
  const Cents rounded = RoundedHalfUp(std::fabs(amount));
  return (amount < 0 ? "(负)" : "") + YuanWords(rounded.yuan) + CentWords(rounded.cents);
}

}  // namespace td
