// The value of one column of one row.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace td {

struct Null {
  bool operator==(const Null&) const = default;
};

// Days since 30 December 1899; the fraction is the time of day.
struct Date {
  double serial = 0;
  bool operator==(const Date&) const = default;
};

using Bytes = std::vector<std::byte>;

// Null, flag, whole number, real, text (UTF-8), date or bytes. text/conversions.h holds the
// conversions between the kinds.
using Value = std::variant<Null, bool, std::int64_t, double, std::string, Date, Bytes>;

[[nodiscard]] inline bool IsNull(const Value& value) {
  return std::holds_alternative<Null>(value);
}

// A flag in the form in which a row holds it: a flag, a number, a text, or Null for one that is not
// set. Whoever needs its truth asks IsSet (text/conversions.h), and meets the failure of a text
// that is no flag there.
struct StoredFlag {
  const Value& value;
};

}  // namespace td
