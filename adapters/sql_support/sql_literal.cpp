#include "sql_support/sql_literal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "text/conversions.h"

namespace td {
namespace {

std::string Quoted(std::string_view text) {
  std::string literal = "'";
  for (const char c : text) literal.append(c == '\'' ? 2 : 1, c);
  return literal + "'";
}

std::string DigitsOf(double number) {
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  std::string text(digits.data(), end);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

std::string BytesLiteral(const Bytes& bytes, const LiteralForm& form) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string literal(form.beforeBytes);
  for (const std::byte byte : bytes) {
    const auto number = std::to_integer<unsigned>(byte);
    literal += kDigits[number >> 4U];
    literal += kDigits[number & 15U];
  }
  return literal.append(form.behindBytes);
}

// Seconds at the six decimals that a serial number holds today; those of the text are cut.
std::string DateText(Date date) {
  constexpr double kMicrosecondsPerDay = 86400e6;
  const double microseconds = std::round(date.serial * kMicrosecondsPerDay);
  const double fraction = microseconds - std::floor(microseconds / 1e6) * 1e6;
  std::string text = ToText(Value(Date{(microseconds - fraction) / kMicrosecondsPerDay}));
  if (fraction == 0) return text;
  if (text.find(':') == std::string::npos) text += " 00:00:00";
  const std::string digits = std::to_string(static_cast<std::int64_t>(fraction));
  return text + "." + std::string(6 - digits.size(), '0') + digits;
}

struct Writer {
  const LiteralForm& form;

  std::string operator()(Null) const { return "null"; }
  std::string operator()(bool flag) const { return Number(flag ? "1" : "0"); }
  std::string operator()(std::int64_t number) const { return Number(std::to_string(number)); }
  std::string operator()(double number) const {
    return std::isfinite(number) ? Number(DigitsOf(number)) : "null";
  }
  std::string operator()(const std::string& text) const {
    return std::string(form.beforeText) + Quoted(text);
  }
  std::string operator()(Date date) const { return Quoted(DateText(date)); }
  std::string operator()(const Bytes& bytes) const { return BytesLiteral(bytes, form); }

  [[nodiscard]] std::string Number(const std::string& digits) const {
    return form.quotesNumbers ? Quoted(digits) : digits;
  }
};

}  // namespace

std::string SqlLiteral(const Value& value, const LiteralForm& form) {
  return std::visit(Writer{form}, value);
}

}  // namespace td
