#include "recording/sql_conditions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <compare>
#include <optional>

#include "recording/sql_tokens.h"
#include "text/conversions.h"

namespace td::recording {
namespace {

std::optional<double> NumberIn(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    return static_cast<double>(*whole);
  }
  if (const auto* real = std::get_if<double>(&value)) {
    return *real;
  }
  return std::nullopt;
}

std::optional<double> NumberSpelledBy(const std::string& text) {
  double number = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ptr != end || read.ec != std::errc() || !std::isfinite(number)) {
    return std::nullopt;
  }
  return number;
}

// How two values stand to each other; unordered when they can't be compared.
std::partial_ordering Compare(const Value& a, const Value& b) {
  const auto* textA = std::get_if<std::string>(&a);
  const auto* textB = std::get_if<std::string>(&b);
  if (textA != nullptr && textB != nullptr) {
    return *textA <=> *textB;
  }
  const auto numberA = textA != nullptr ? NumberSpelledBy(*textA) : NumberIn(a);
  const auto numberB = textB != nullptr ? NumberSpelledBy(*textB) : NumberIn(b);
  if (numberA && numberB) {
    return *numberA <=> *numberB;
  }
  return std::partial_ordering::unordered;
}

bool CompareHolds(Comparison comparison, const Value& a, const Value& b) {
  if (IsNull(a) || IsNull(b)) {
    return false;
  }
  const std::partial_ordering order = Compare(a, b);
  switch (comparison) {
    case Comparison::kEqual:
      return std::is_eq(order);
    case Comparison::kUnequal:
      return std::is_neq(order);
    case Comparison::kLess:
      return std::is_lt(order);
    case Comparison::kLessOrEqual:
      return std::is_lteq(order);
    case Comparison::kGreater:
      return std::is_gt(order);
    case Comparison::kGreaterOrEqual:
      return std::is_gteq(order);
  }
  return false;
}

std::string FirstCharacters(const std::string& text, double count) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    const bool startsCharacter = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (startsCharacter && --count < 0) {
      break;
    }
  }
  return text.substr(0, end);
}

int KindRank(const Value& value) {
  if (IsNull(value)) {
    return 0;
  }
  if (NumberIn(value)) {
    return 1;
  }
  return std::holds_alternative<std::string>(value) ? 2 : 3;
}

}  // namespace

Scope::Scope(const std::string& qualifier, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    columns_.push_back({qualifier, name});
  }
}

std::size_t Scope::Find(const Scalar& column) const {
  std::optional<std::size_t> found;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const bool isIt =
        SameName(columns_[i].name, column.name) &&
        (column.qualifier.empty() || SameName(columns_[i].qualifier, column.qualifier));
    if (isIt && found) {
      FailAt("列名不明确", column.position);
    }
    if (isIt) {
      found = i;
    }
  }
  if (!found) {
    FailAt("列名无效", column.position);
  }
  return *found;
}

void Scope::Bind(Scalar& value) const {
  if (value.kind == Scalar::Kind::kColumn) {
    value.place = Find(value);
  }
  for (Scalar& argument : value.arguments) {
    Bind(argument);
  }
}

void Scope::Bind(Condition& condition) const {
  for (Scalar& side : condition.sides) {
    Bind(side);
  }
  for (Condition& part : condition.parts) {
    Bind(part);
  }
}

Value ValueIn(const Scalar& value, const Row& row) {
  switch (value.kind) {
    case Scalar::Kind::kColumn:
      return row[value.place];
    case Scalar::Kind::kLiteral:
      return value.literal;
    case Scalar::Kind::kIsNull: {
      const Value first = ValueIn(value.arguments[0], row);
      return IsNull(first) ? ValueIn(value.arguments[1], row) : first;
    }
    case Scalar::Kind::kLeft:
      break;
  }
  const Value text = ValueIn(value.arguments[0], row);
  const auto count = NumberIn(ValueIn(value.arguments[1], row));
  if (!count || std::holds_alternative<Bytes>(text)) {
    FailAt("函数的参数无效", value.position);
  }
  return IsNull(text) ? text : FirstCharacters(ToText(text), *count);
}

bool Holds(const Condition& condition, const Row& row) {
  const auto partHolds = [&](const Condition& part) { return Holds(part, row); };
  switch (condition.kind) {
    case Condition::Kind::kAll:
      return std::all_of(condition.parts.begin(), condition.parts.end(), partHolds);
    case Condition::Kind::kAny:
      return std::any_of(condition.parts.begin(), condition.parts.end(), partHolds);
    case Condition::Kind::kComparison:
      break;
  }
  return CompareHolds(condition.comparison, ValueIn(condition.sides[0], row),
                      ValueIn(condition.sides[1], row));
}

bool SortsBefore(const Value& a, const Value& b) {
  if (KindRank(a) != KindRank(b)) {
    return KindRank(a) < KindRank(b);
  }
  return std::is_lt(Compare(a, b));
}

}  // namespace td::recording
