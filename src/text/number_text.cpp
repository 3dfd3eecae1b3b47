#include "text/number_text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <system_error>

#include "platform/standard_failures.h"

namespace td {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The parts of a number at the start of a text.
struct Scan {
  bool negative = false;
  std::string integer;
  std::string fraction;
  int exponent = 0;
  std::size_t length = 0;  // characters read

  [[nodiscard]] bool HasDigits() const { return !integer.empty() || !fraction.empty(); }
};

std::string ScanDigits(std::string_view text, std::size_t& at) {
  const std::size_t start = at;
  while (at < text.size() && IsDigit(text[at])) ++at;
  return std::string(text.substr(start, at - start));
}

// Reads an exponent at `at`, or nothing if no digits follow the letter.
int ScanExponent(std::string_view text, std::size_t& at) {
  if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) return 0;
  std::size_t next = at + 1;
  bool negative = false;
  if (next < text.size() && (text[next] == '+' || text[next] == '-')) {
    negative = text[next] == '-';
    ++next;
  }
  const std::string digits = ScanDigits(text, next);
  if (digits.empty()) return 0;
  at = next;
  constexpr int kBeyondAnyNumber = 100'000'000;  // more than a text can balance with zeros
  int exponent = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  if (read.ec != std::errc{}) exponent = kBeyondAnyNumber;
  exponent = std::min(exponent, kBeyondAnyNumber);
  return negative ? -exponent : exponent;
}

Scan ScanNumber(std::string_view text) {
  Scan scan;
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
    scan.negative = text[at] == '-';
    ++at;
  }
  scan.integer = ScanDigits(text, at);
  if (at < text.size() && text[at] == '.') {
    ++at;
    scan.fraction = ScanDigits(text, at);
  }
  if (!scan.HasDigits()) return {};
  scan.exponent = ScanExponent(text, at);
  scan.length = at;
  return scan;
}

double ValueOf(const Scan& scan) {
  std::string digits = scan.integer + scan.fraction;
  const std::size_t first = digits.find_first_not_of('0');
  if (first == std::string::npos) return 0;
  digits.erase(0, first);
  // The number is d.ddd… times ten to the power of `magnitude`.
  const std::int64_t magnitude = static_cast<std::int64_t>(scan.integer.size()) -
                                 static_cast<std::int64_t>(first) - 1 + scan.exponent;
  digits.insert(1, 1, '.');
  const std::string text = digits + "e" + std::to_string(magnitude);
  double value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec != std::errc{}) {
    if (magnitude > 0) throw OverflowFailure();
    return 0;
  }
  return scan.negative ? -value : value;
}

// Takes the commas out of the digits before the point; false if they don't group by threes.
bool Ungroup(std::string& text) {
  const std::size_t start = text.find_first_of("0123456789,.");
  if (start == std::string::npos) return false;
  const std::size_t end = std::min(text.find_first_not_of("0123456789,", start), text.size());
  const std::string digits = text.substr(start, end - start);
  std::size_t comma = digits.find(',');
  if (comma == std::string::npos) return true;
  if (comma == 0 || comma > 3) return false;
  std::string plain = digits.substr(0, comma);
  for (; comma < digits.size(); comma += 4) {
    const std::string group = digits.substr(comma + 1, 3);
    if (digits[comma] != ',' || group.size() != 3 ||
        !std::all_of(group.begin(), group.end(), IsDigit)) {
      return false;
    }
    plain += group;
  }
  text.replace(start, digits.size(), plain);
  return true;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return ValueOf(ScanNumber(text));
}

std::optional<double> WholeNumberText(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return std::nullopt;
  std::string trimmed(text.substr(first, text.find_last_not_of(kBlanks) + 1 - first));
  if (!Ungroup(trimmed)) return std::nullopt;
  const Scan scan = ScanNumber(trimmed);
  if (!scan.HasDigits() || scan.length != trimmed.size()) return std::nullopt;
  return ValueOf(scan);
}

}  // namespace td
