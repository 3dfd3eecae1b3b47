#include "page_outputs/number_text.h"

#include <array>
#include <cmath>
#include <cstdlib>

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
  std::array<char, 24> digits{};
  auto first = digits.end();
  auto rest = static_cast<std::uint64_t>(std::abs(hundredths));
  const auto add = [&first](std::uint64_t digit) { *--first = static_cast<char>('0' + digit); };
  if (const std::uint64_t places = rest % 100; places != 0) {
    if (places % 10 != 0) add(places % 10);
    add(places / 10);
    *--first = '.';
  }
  rest /= 100;
  do {
    add(rest % 10);
    rest /= 10;
  } while (rest != 0);
  if (hundredths < 0) *--first = '-';
  text.append(&*first, static_cast<std::size_t>(digits.end() - first));
}

}  // namespace td
