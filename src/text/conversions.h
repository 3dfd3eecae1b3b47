// Conversions between the kinds of column values. They never ask the machine's language, so that a
// value prints and is stored alike everywhere.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace td {

// The text that a value joins to a string with; Null joins as empty. Reals have at most 15
// significant digits and no trailing zeros, fixed from 1E-04 to below 1E+15, otherwise as 1.5E+20.
// Dates are yyyy-MM-dd, with HH:mm:ss behind a blank if there is a time. Flags are True and False.
// Bytes fail with kTypeMismatch.
[[nodiscard]] std::string ToText(const Value& value);
[[nodiscard]] std::string ToText(double number);
[[nodiscard]] std::string ToText(float number);  // at most 7 significant digits
[[nodiscard]] std::string ToText(std::int64_t number);
[[nodiscard]] inline std::string ToText(std::int32_t number) {
  return ToText(std::int64_t{number});
}

// The value as a lone string: like ToText, but Null fails with kInvalidUseOfNull.
[[nodiscard]] std::string ToLoneText(const Value& value);

// The leading number of the value's text, 0 if there is none: leading blanks, sign, digits, one
// point, exponent. Null fails with kInvalidUseOfNull.
[[nodiscard]] double Val(const Value& value);
[[nodiscard]] double Val(std::string_view text);

// True of numbers and flags, and of a text that as a whole is a number, with blanks around it and
// commas that group by threes allowed; false of Null, dates, bytes and the empty text.
[[nodiscard]] bool IsNumeric(const Value& value);

// Each fails with kInvalidUseOfNull on Null, kTypeMismatch on text that is no number and on bytes,
// kOverflow outside its range. Whole numbers round to nearest, halves to even. A true flag is 1,
// a date its serial number.
[[nodiscard]] double ToDouble(const Value& value);
[[nodiscard]] float ToSingle(const Value& value);
[[nodiscard]] std::int16_t ToInteger16(const Value& value);
[[nodiscard]] std::int32_t ToInteger32(const Value& value);

// Zero is false, any other number true; text is a number, or True or False in any case.
[[nodiscard]] bool ToFlag(const Value& value);

// The same where Null means a flag that is not set.
[[nodiscard]] bool IsSet(const Value& value);
[[nodiscard]] inline bool IsSet(const StoredFlag& flag) {
  return IsSet(flag.value);
}

// A single as a double that shows the same digits, at most 7: the widened bits alone would show
// digits that the single never had. What is not finite stays.
[[nodiscard]] double WidenSingle(float number);

// The text in lower case; only the letters A to Z change.
[[nodiscard]] std::string LowerCase(std::string_view text);

// `text` repeated `count` times, empty when `count` is below 1.
[[nodiscard]] std::string RepeatText(std::string_view text, std::int16_t count);

}  // namespace td
