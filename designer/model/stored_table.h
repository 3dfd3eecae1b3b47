// Rows of the application's tables, read and written within a transaction.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "designer/model/known_columns.h"
#include "designer/model/row.h"
#include "sql_support/transaction.h"

namespace td::designer {

// A row in two parts: the columns that a designer knows, and the application's own.
struct StoredRow {
  Row known;
  Row others;

  // Null where neither has the column.
  [[nodiscard]] const Value& Get(std::string_view column) const {
    return known.Has(column) ? known.Get(column) : others.Get(column);
  }
};

struct StoredTable {
  ColumnNamesRef known;  // in the designer's order
  ColumnNamesRef others;
  std::vector<StoredRow> rows;
  std::vector<Value> links;  // of each row, the column that is in neither part
};

// What tells rows of one table from those of another: the link of an item to its format, say.
struct TableAccess {
  std::string_view table;
  std::span<const KnownColumn> known;
  std::string_view link;  // a column that stands in neither part of a row
};

inline constexpr std::string_view kFormatKey = "FTDBillID";
inline constexpr std::string_view kBillTypeColumn = "FTranType";

[[nodiscard]] TableAccess FormatAccess();    // linked by FTDBillID
[[nodiscard]] TableAccess ItemAccess();      // likewise
[[nodiscard]] TableAccess VariableAccess();  // linked by FTranType

// The rows for which a condition holds, in the order in which they lie in the table.
[[nodiscard]] StoredTable ReadTable(Transaction& transaction, const TableAccess& access,
                                    const std::string& condition);

// A value by its column: "FLeft=12". Null in a condition is "is null".
[[nodiscard]] std::string Assignment(const Transaction& transaction, std::string_view column,
                                     const Value& value);
[[nodiscard]] std::string Condition(const Transaction& transaction, std::string_view column,
                                    const Value& value);

// A name in double quotes, as it is: the application's columns may have any.
[[nodiscard]] std::string QuotedName(std::string_view name);

// The first value of a query's first row; Null without a row.
[[nodiscard]] Value FirstValue(Transaction& transaction, const std::string& sql);

// Collects the columns of one insert or update statement.
class ColumnList {
 public:
  explicit ColumnList(const Transaction& transaction) : transaction_(transaction) {}

  void Add(std::string_view column, const Value& value);
  void AddQuoted(std::string_view column, const Value& value);
  // The columns of a row that `names` has, too.
  void AddKnown(const Row& row, const ColumnNames& names);
  // Those of the application, without some.
  void AddOthers(const Row& row, const ColumnNames& names, std::span<const std::string> without);
  // The application's columns of those names that a row has.
  void AddFrom(const StoredRow& row, std::span<const std::string> names);
  // The columns in which two rows of one table differ, as the second has them.
  void AddChanges(const Row& before, const Row& after);

  [[nodiscard]] bool Empty() const { return entries_.empty(); }
  [[nodiscard]] std::string InsertInto(std::string_view table) const;
  [[nodiscard]] std::string UpdateOf(std::string_view table, const std::string& condition) const;

 private:
  struct Entry {
    std::string name;
    std::string literal;
  };
  const Transaction& transaction_;
  std::vector<Entry> entries_;
};

}  // namespace td::designer
