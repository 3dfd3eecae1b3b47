// Tables in memory that answer statements as a database does.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "recording/json_values.h"
#include "recording/table_data.h"

namespace td::recording {

// The statements are those of the component: select with derived tables, inner and left joins,
// where, group by and order by, left() and isnull(,), update, insert and delete. Identifiers are
// found without regard to case. A number is equal to a text that spells it; other values are
// compared exactly, and Null equals nothing. Rows come back in the order in which they are stored.
class MemoryTables {
 public:
  explicit MemoryTables(std::map<std::string, TableData> tables);

  // Both fail with kDatabaseFailed on a statement that a database would refuse: bad grammar, text
  // behind the end, an unknown table or column. A failing statement changes nothing.
  [[nodiscard]] TableData Query(const std::string& sql) const;
  void Execute(const std::string& sql);

  // Nothing if there is no such table.
  [[nodiscard]] const TableData* Find(std::string_view name) const;

  // All tables in the form that a scenario has them.
  [[nodiscard]] Json AsJson() const;

 private:
  std::map<std::string, TableData> tables_;
};

}  // namespace td::recording
