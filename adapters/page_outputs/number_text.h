// Lengths as the outputs write them.
#pragma once

#include <cstdint>
#include <string>

namespace td {

// A length to a hundredth, in hundredths. Halves are rounded up.
[[nodiscard]] std::int64_t Hundredths(double number);

// Adds a number of hundredths as a decimal, without needless digits.
void AppendHundredths(std::string& text, std::int64_t hundredths);

// Adds a length in twips, to a hundredth: finer than any output can show.
inline void AppendNumber(std::string& text, double number) {
  AppendHundredths(text, Hundredths(number));
}

}  // namespace td
