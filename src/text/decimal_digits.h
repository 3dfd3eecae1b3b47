// The decimal reading of a real number: what a person sees as its digits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace td {

inline constexpr int kDoubleDigits = 15;
inline constexpr int kFloatDigits = 7;

// The number 0.d1d2d3… times ten to the power of `point`, so that `point` is the count of digits
// before the decimal point where it is positive.
struct DecimalDigits {
  bool negative = false;
  std::string digits;  // no zeros at either end; empty for zero
  int point = 0;       // 0 for zero

  [[nodiscard]] bool IsZero() const { return digits.empty(); }
};

// `number`, which is finite, at `significant` digits. A negative zero reads as zero.
[[nodiscard]] DecimalDigits ReadDecimal(double number, int significant = kDoubleDigits);

// `number` with all its digits.
[[nodiscard]] DecimalDigits ReadWhole(std::int64_t number);

// The reading rounded to `places` digits after the point (before it if negative), halves away from
// zero. What rounds to zero is not negative.
[[nodiscard]] DecimalDigits RoundToPlaces(const DecimalDigits& number, int places);

// The digits before the point, at least "0" when `number` is below one.
[[nodiscard]] std::string IntegerDigits(const DecimalDigits& number);

// The first `places` digits after the point, filled up with zeros; nothing is rounded.
[[nodiscard]] std::string FractionDigits(const DecimalDigits& number, int places);

// The number as plain text: fixed from 1E-04 to below 1E+15, otherwise as 1.5E+20.
[[nodiscard]] std::string GeneralNumber(const DecimalDigits& number);

// A number that is not negative, with zeros in front up to `width` digits.
[[nodiscard]] std::string PaddedNumber(int number, std::size_t width);

}  // namespace td
