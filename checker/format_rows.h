// The rows that make up a format, as they are stored. A program that edits a format can have its
// rows checked before they are saved.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "platform/value.h"

namespace td::checker {

// Columns and rows, each row with one value a column.
struct StoredRows {
  std::vector<std::string> columns;
  std::vector<std::vector<Value>> rows;
};

// One row of them. Borrows them.
class StoredRow {
 public:
  StoredRow(const StoredRows& table, std::size_t index) : table_(&table), index_(index) {}

  // Nothing if there is no such column; names are found without regard to case.
  [[nodiscard]] const Value* Find(std::string_view column) const;
  [[nodiscard]] bool HasNull(std::string_view column) const;
  // The text of a value, empty if it is Null, missing or holds bytes.
  [[nodiscard]] std::string Text(std::string_view column) const;
  // The value as a number, nothing if it is none.
  [[nodiscard]] std::optional<double> Number(std::string_view column) const;
  // Whether a flag is set; Null and what is no flag are not.
  [[nodiscard]] bool Flag(std::string_view column) const;

 private:
  const StoredRows* table_;
  std::size_t index_;
};

// One format: its row of TDBill, its rows of TDBillDetail and the variables of its bill type.
struct FormatRows {
  std::int16_t billType = 0;
  std::string name;
  StoredRows bill;       // one row
  StoredRows items;      // with FFieldName, the variable that the database found for the item
  StoredRows variables;  // TDVariant of the bill type

  [[nodiscard]] StoredRow Bill() const { return {bill, 0}; }
  [[nodiscard]] StoredRow Item(std::size_t index) const { return {items, index}; }
  [[nodiscard]] std::size_t ItemCount() const { return items.rows.size(); }
};

// Gives items that come without the column FFieldName the variable of their FObjectFieldName, as
// the database would. For rows that no database has joined.
void ResolveVariables(FormatRows& format);

// All rows of a record set, from where it stands, in the columns of `wanted` that it has.
[[nodiscard]] StoredRows ReadRows(Recordset& rows, const std::vector<std::string_view>& wanted);

// The columns that the component knows.
[[nodiscard]] const std::vector<std::string_view>& BillColumns();
[[nodiscard]] const std::vector<std::string_view>& ItemColumns();  // with FFieldName
[[nodiscard]] const std::vector<std::string_view>& VariableColumns();
[[nodiscard]] const std::vector<std::string_view>& MachinePaperColumns();
[[nodiscard]] const std::vector<std::string_view>& AreaPrinterColumns();

}  // namespace td::checker
