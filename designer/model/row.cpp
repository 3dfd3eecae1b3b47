#include "designer/model/row.h"

#include <cmath>
#include <utility>

#include "platform/failure.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

const ColumnNamesRef& NoNames() {
  static const ColumnNamesRef none =
      std::make_shared<const ColumnNames>(std::vector<std::string>());
  return none;
}

bool IsNumberKind(const Value& value) {
  return std::holds_alternative<bool>(value) || std::holds_alternative<std::int64_t>(value) ||
         std::holds_alternative<double>(value);
}

}  // namespace

Row::Row() : names_(NoNames()) {}

Row::Row(ColumnNamesRef names, std::vector<Value> values)
    : names_(std::move(names)), values_(std::move(values)) {
  if (names_->Size() != values_.size()) {
    throw Failure(kInvalidCall, "a row needs one value for each column");
  }
}

const Value& Row::Get(std::string_view column) const {
  static const Value kNone = Null{};
  const auto index = names_->Find(column);
  return index ? values_[*index] : kNone;
}

bool Row::Set(std::string_view column, Value value) {
  const auto index = names_->Find(column);
  if (!index) return false;
  values_[*index] = std::move(value);
  return true;
}

double Row::Number(std::string_view column) const {
  const Value& value = Get(column);
  return IsNumeric(value) ? ToDouble(value) : 0;
}

std::string Row::Text(std::string_view column) const {
  const Value& value = Get(column);
  return std::holds_alternative<Bytes>(value) ? std::string() : ToText(value);
}

bool Row::Flag(std::string_view column) const {
  try {
    return IsSet(Get(column));
  } catch (const Failure&) {
    return false;
  }
}

bool Row::PutNumber(std::string_view column, double number) {
  const Value& old = Get(column);
  if (std::holds_alternative<std::string>(old)) return Set(column, ToText(number));
  if (std::holds_alternative<bool>(old) && (number == 0 || number == 1)) {
    return Set(column, number == 1);
  }
  return Set(column, NumberValue(number));
}

bool Row::PutFlag(std::string_view column, bool flag) {
  return PutNumber(column, flag ? 1 : 0);
}

bool Row::operator==(const Row& other) const {
  if (Size() != other.Size()) return false;
  for (std::size_t i = 0; i < Size(); ++i) {
    const std::string& name = names_->Name(i);
    if (!other.Has(name) || values_[i] != other.Get(name)) return false;
  }
  return true;
}

bool MeanTheSame(const Value& one, const Value& other) {
  if (one == other) return true;
  return IsNumberKind(one) && IsNumberKind(other) && ToDouble(one) == ToDouble(other);
}

Value NumberValue(double number) {
  constexpr double kExactUpTo = 9007199254740992.0;
  if (std::trunc(number) == number && std::abs(number) <= kExactUpTo) {
    return static_cast<std::int64_t>(number);
  }
  return number;
}

}  // namespace td::designer
