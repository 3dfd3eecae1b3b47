#include "render/number_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace td {

std::int64_t Hundredths(double number) {
  constexpr double kPlaces = 100;
  const double magnitude = std::abs(number);
  const double scaled = magnitude * kPlaces;
  const double whole = std::floor(scaled);
  const double lost = std::fma(magnitude, kPlaces, -scaled);  // by the multiplication
  const double rest = scaled - whole;
  const bool roundsUp = rest > 0.5 || (rest == 0.5 && lost >= 0);
  const auto hundredths = static_cast<std::int64_t>(whole) + (roundsUp ? 1 : 0);
  return number < 0 ? -hundredths : hundredths;
}

void AppendHundredths(std::string& text, std::int64_t hundredths) {
  if (hundredths < 0) {
    text += '-';
    hundredths = -hundredths;
  }
  std::array<char, 24> digits{};
  text.append(digits.data(), std::to_chars(digits.begin(), digits.end(), hundredths / 100).ptr);
  if (hundredths % 100 == 0) return;
  text += '.';
  text += static_cast<char>('0' + hundredths % 100 / 10);
  if (hundredths % 10 != 0) text += static_cast<char>('0' + hundredths % 10);
}

}  // namespace td
