// Values and conditions of a statement, worked out for one row.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "recording/sql_syntax.h"
#include "recording/table_data.h"

namespace td::recording {

struct BoundColumn {
  std::string qualifier;  // the alias of its source
  std::string name;
};

// The columns among which a statement looks up its names.
class Scope {
 public:
  Scope() = default;
  explicit Scope(std::vector<BoundColumn> columns) : columns_(std::move(columns)) {}
  Scope(const std::string& qualifier, const std::vector<std::string>& names);

  [[nodiscard]] const std::vector<BoundColumn>& Columns() const { return columns_; }

  // The place of a column. Fails when there is none of that name, or more than one.
  [[nodiscard]] std::size_t Find(const Scalar& column) const;

  // Finds the places of all columns in the value or the condition. Fails when one can't be found,
  // also where no row is there to be looked at.
  void Bind(Scalar& value) const;
  void Bind(Condition& condition) const;

 private:
  std::vector<BoundColumn> columns_;
};

// The value and the condition are bound to the scope of the row.
[[nodiscard]] Value ValueIn(const Scalar& value, const Row& row);

// A comparison with Null does not hold.
[[nodiscard]] bool Holds(const Condition& condition, const Row& row);

// The order of two values: Null, numbers, texts, bytes.
[[nodiscard]] bool SortsBefore(const Value& a, const Value& b);

}  // namespace td::recording
