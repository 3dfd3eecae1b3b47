#include "text/picture_operand.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

#include "text/calendar.h"
#include "text/conversions.h"

namespace td {

namespace {

// Takes a whole number without a sign from the start of `text`.
std::optional<int> TakeNumber(std::string_view& text) {
  if (text.empty() || text[0] < '0' || text[0] > '9') return std::nullopt;
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc{}) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  return number;
}

bool TakeMark(std::string_view& text, char mark) {
  if (text.empty() || text[0] != mark) return false;
  text.remove_prefix(1);
  return true;
}

std::optional<double> TakeDate(std::string_view& text) {
  const std::optional<int> year = TakeNumber(text);
  if (!year || text.empty()) return std::nullopt;
  const char separator = text[0];
  if (separator != '-' && separator != '/') return std::nullopt;
  TakeMark(text, separator);
  const std::optional<int> month = TakeNumber(text);
  if (!month || !TakeMark(text, separator)) return std::nullopt;
  const std::optional<int> day = TakeNumber(text);
  if (!day || *year < 100 || *year > 9999 || *month > 12 || *day > 31) return std::nullopt;

  using namespace std::chrono;
  const year_month_day date{std::chrono::year{*year},
                            std::chrono::month{static_cast<unsigned>(*month)},
                            std::chrono::day{static_cast<unsigned>(*day)}};
  if (!date.ok()) return std::nullopt;
  return DaySerial(date);
}

// The part of a day. A fraction of a second is read and left out.
std::optional<double> TakeTime(std::string_view& text) {
  const std::optional<int> hour = TakeNumber(text);
  if (!hour || !TakeMark(text, ':')) return std::nullopt;
  const std::optional<int> minute = TakeNumber(text);
  if (!minute || *hour > 23 || *minute > 59) return std::nullopt;
  std::optional<int> second = 0;
  if (TakeMark(text, ':')) {
    second = TakeNumber(text);
    if (!second || *second > 59) return std::nullopt;
    if (TakeMark(text, '.') && !TakeNumber(text)) return std::nullopt;
  }
  return ((*hour * 60 + *minute) * 60 + *second) / kSecondsPerDay;
}

std::optional<double> DateInText(std::string_view text) {
  std::string_view rest = text;
  const std::optional<double> date = TakeDate(rest);
  if (date && rest.empty()) return date;
  if (date && !TakeMark(rest, ' ') && !TakeMark(rest, 'T')) return std::nullopt;
  if (!date) rest = text;
  const std::optional<double> time = TakeTime(rest);
  if (!time || !rest.empty()) return std::nullopt;
  return MomentSerial(date.value_or(0), *time);
}

std::optional<double> FiniteNumber(const Value& value) {
  if (!IsNumeric(value) && !std::holds_alternative<Date>(value)) return std::nullopt;
  const double number = ToDouble(value);
  return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<DecimalDigits> NumberOperand(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return ReadWhole(*whole);
  const std::optional<double> number = FiniteNumber(value);
  return number ? std::optional(ReadDecimal(*number)) : std::nullopt;
}

std::optional<double> SerialOperand(const Value& value) {
  const std::optional<double> number = FiniteNumber(value);
  if (number) return number;
  const auto* text = std::get_if<std::string>(&value);
  return text == nullptr ? std::nullopt : DateInText(*text);
}

}  // namespace td
