// One row of a table of the application, as it was read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "memory_rows/column_names.h"
#include "platform/value.h"

namespace td::designer {

// Values in the kinds in which the database handed them out, so that what nobody touches is written
// back as it was. The names of the columns are shared by all rows of one source and found without
// regard to case.
class Row {
 public:
  Row();
  // One value for each name.
  Row(ColumnNamesRef names, std::vector<Value> values);

  [[nodiscard]] const ColumnNames& Names() const { return *names_; }
  [[nodiscard]] const ColumnNamesRef& SharedNames() const { return names_; }
  [[nodiscard]] std::size_t Size() const { return values_.size(); }
  [[nodiscard]] const Value& At(std::size_t index) const { return values_[index]; }

  [[nodiscard]] bool Has(std::string_view column) const { return names_->Find(column).has_value(); }
  // Null for a column that the row doesn't have.
  [[nodiscard]] const Value& Get(std::string_view column) const;
  // False, and nothing happens, for a column that the row doesn't have.
  bool Set(std::string_view column, Value value);

  // What a column says, whatever its kind: no number is 0, Null and bytes are empty, what is no
  // flag isn't set.
  [[nodiscard]] double Number(std::string_view column) const;
  [[nodiscard]] std::string Text(std::string_view column) const;
  [[nodiscard]] bool Flag(std::string_view column) const;

  // Writes a number or a flag in the kind that the column holds already: a text stays a text, a
  // flag a flag, and a number without decimals becomes a whole one.
  bool PutNumber(std::string_view column, double number);
  bool PutFlag(std::string_view column, bool flag);

  // The same columns, in any order, with the same values of the same kinds.
  bool operator==(const Row& other) const;

 private:
  ColumnNamesRef names_;
  std::vector<Value> values_;
};

// Whether two stored values mean the same: equal, or numbers of two kinds that are equal. An engine
// may hand a 9 out as a whole number, as a real or as a flag.
[[nodiscard]] bool MeanTheSame(const Value& one, const Value& other);

// A number as it is stored where nothing else is known: whole if it is.
[[nodiscard]] Value NumberValue(double number);

}  // namespace td::designer
