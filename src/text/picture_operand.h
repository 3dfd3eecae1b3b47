// What a value is to a picture.
#pragma once

#include <optional>

#include "platform/value.h"
#include "text/decimal_digits.h"

namespace td {

// The value as a number: a flag is 1 or 0, a date its serial, a text the number that it is as a
// whole. Nothing of Null, bytes, other text and of what is not finite.
[[nodiscard]] std::optional<DecimalDigits> NumberOperand(const Value& value);

// The value as a date serial: a date, a number, or a text that is a number or a date. Dates in
// texts are 2024-05-01 or 2024/5/1, times behind a blank or alone are 13:05 or 13:05:09.
[[nodiscard]] std::optional<double> SerialOperand(const Value& value);

}  // namespace td
