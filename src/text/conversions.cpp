#include "text/conversions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <type_traits>

#include "platform/standard_failures.h"
#include "text/calendar.h"
#include "text/decimal_digits.h"
#include "text/number_text.h"

namespace td {

namespace {

template <typename Kind, typename Wanted>
constexpr bool kIs = std::is_same_v<Kind, Wanted>;

std::string RealText(double number, int significant) {
  if (std::isnan(number)) return "NaN";
  if (std::isinf(number)) return number < 0 ? "-Infinity" : "Infinity";
  return GeneralNumber(ReadDecimal(number, significant));
}

std::string DateText(const Date& date) {
  const CalendarTime time = ReadSerial(date.serial);
  std::string text = PaddedNumber(time.year, 4) + "-" + PaddedNumber(time.month, 2) + "-" +
                     PaddedNumber(time.day, 2);
  if (time.HasTime()) {
    text += " " + PaddedNumber(time.hour, 2) + ":" + PaddedNumber(time.minute, 2) + ":" +
            PaddedNumber(time.second, 2);
  }
  return text;
}

template <typename Integer>
Integer ToInteger(const Value& value) {
  // Rounds to nearest, halves to even: the default mode of the machine, which nothing changes.
  const double rounded = std::nearbyint(ToDouble(value));
  // Written so that a value that is no number fails, too.
  if (!(rounded >= std::numeric_limits<Integer>::min() &&
        rounded <= std::numeric_limits<Integer>::max())) {
    throw OverflowFailure();
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

std::string ToText(std::int64_t number) {
  std::array<char, 24> buffer{};
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return {buffer.data(), written.ptr};
}

std::string ToText(double number) {
  return RealText(number, kDoubleDigits);
}

std::string ToText(float number) {
  return RealText(number, kFloatDigits);
}

std::string ToText(const Value& value) {
  return std::visit(
      [](const auto& held) -> std::string {
        using Kind = std::decay_t<decltype(held)>;
        if constexpr (kIs<Kind, Null>) {
          return {};
        } else if constexpr (kIs<Kind, bool>) {
          return held ? "True" : "False";
        } else if constexpr (kIs<Kind, std::string>) {
          return held;
        } else if constexpr (kIs<Kind, Date>) {
          return DateText(held);
        } else if constexpr (kIs<Kind, Bytes>) {
          throw MismatchFailure();
        } else {
          return ToText(held);
        }
      },
      value);
}

std::string ToLoneText(const Value& value) {
  if (IsNull(value)) throw NullFailure();
  return ToText(value);
}

double Val(const Value& value) {
  return Val(std::string_view(ToLoneText(value)));
}

double Val(std::string_view text) {
  return LeadingNumber(text);
}

bool IsNumeric(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr) {
    return std::holds_alternative<bool>(value) || std::holds_alternative<std::int64_t>(value) ||
           std::holds_alternative<double>(value);
  }
  try {
    return WholeNumberText(*text).has_value();
  } catch (const Failure&) {
    return false;  // too large for a number
  }
}

double ToDouble(const Value& value) {
  return std::visit(
      [](const auto& held) -> double {
        using Kind = std::decay_t<decltype(held)>;
        if constexpr (kIs<Kind, Null>) {
          throw NullFailure();
        } else if constexpr (kIs<Kind, Bytes>) {
          throw MismatchFailure();
        } else if constexpr (kIs<Kind, std::string>) {
          const std::optional<double> number = WholeNumberText(held);
          if (!number) throw MismatchFailure();
          return *number;
        } else if constexpr (kIs<Kind, Date>) {
          return held.serial;
        } else {
          return static_cast<double>(held);
        }
      },
      value);
}

float ToSingle(const Value& value) {
  const double number = ToDouble(value);
  if (std::fabs(number) > std::numeric_limits<float>::max()) throw OverflowFailure();
  return static_cast<float>(number);
}

std::int16_t ToInteger16(const Value& value) {
  return ToInteger<std::int16_t>(value);
}

std::int32_t ToInteger32(const Value& value) {
  return ToInteger<std::int32_t>(value);
}

bool ToFlag(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    const std::string lower = LowerCase(*text);
    if (lower == "true") return true;
    if (lower == "false") return false;
  }
  return ToDouble(value) != 0;
}

bool IsSet(const Value& value) {
  return !IsNull(value) && ToFlag(value);
}

double WidenSingle(float number) {
  if (!std::isfinite(number)) return number;
  constexpr std::size_t kLongest = 32;
  std::array<char, kLongest> text{};
  char* const start = text.data();
  const auto written =
      std::to_chars(start, start + text.size(), number, std::chars_format::general, kFloatDigits);
  double widened = 0;
  std::from_chars(start, written.ptr, widened);
  return widened;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return lower;
}

std::string RepeatText(std::string_view text, std::int16_t count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

}  // namespace td
