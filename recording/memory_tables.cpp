#include "recording/memory_tables.h"

#include <utility>
#include <variant>

#include "platform/failure.h"
#include "recording/sql_conditions.h"
#include "recording/sql_parser.h"
#include "recording/sql_select.h"
#include "recording/sql_tokens.h"

namespace td::recording {
namespace {

template <typename Tables>
auto FindIn(Tables& tables, std::string_view name) -> decltype(&tables.begin()->second) {
  for (auto& [tableName, table] : tables) {
    if (SameName(tableName, name)) {
      return &table;
    }
  }
  return nullptr;
}

// The table that a statement changes, with the places at which its names stand.
struct Target {
  Target(TableData* found, const std::string& name, std::size_t position) {
    if (found == nullptr) {
      FailAt("对象名无效", position);
    }
    table = found;
    scope = Scope(name, found->columns);
  }

  TableData* table = nullptr;
  Scope scope;
};

void Change(Update& update, const Target& target) {
  for (Assignment& assignment : update.assignments) {
    target.scope.Bind(assignment.column);
    target.scope.Bind(assignment.value);
  }
  std::vector<Row> changed = target.table->rows;
  for (Row& row : changed) {
    if (update.where && !Holds(*update.where, row)) {
      continue;
    }
    const Row before = row;
    for (const Assignment& assignment : update.assignments) {
      row[assignment.column.place] = ValueIn(assignment.value, before);
    }
  }
  target.table->rows = std::move(changed);
}

void Change(Insert& insert, const Target& target) {
  if (insert.columns.size() != insert.values.size()) {
    FailAt("列的个数与值的个数不同", insert.position);
  }
  Row row(target.table->columns.size());
  for (std::size_t i = 0; i < insert.columns.size(); ++i) {
    Scope().Bind(insert.values[i]);
    row[target.scope.Find(insert.columns[i])] = ValueIn(insert.values[i], {});
  }
  target.table->rows.push_back(std::move(row));
}

void Change(const Delete& statement, const Target& target) {
  std::vector<Row> kept;
  for (const Row& row : target.table->rows) {
    if (statement.where && !Holds(*statement.where, row)) {
      kept.push_back(row);
    }
  }
  target.table->rows = std::move(kept);
}

}  // namespace

MemoryTables::MemoryTables(std::map<std::string, TableData> tables) : tables_(std::move(tables)) {}

const TableData* MemoryTables::Find(std::string_view name) const {
  return FindIn(tables_, name);
}

TableData MemoryTables::Query(const std::string& sql) const {
  Statement statement = Parse(sql);
  auto* select = std::get_if<Select>(&statement);
  if (select == nullptr) {
    throw Failure(kDatabaseFailed, "语句不返回记录集。");
  }
  return RowsOf(*select, *this);
}

void MemoryTables::Execute(const std::string& sql) {
  Statement statement = Parse(sql);
  if (auto* select = std::get_if<Select>(&statement)) {
    (void)RowsOf(*select, *this);
    return;
  }
  const auto targetOf = [&](auto& change) {
    Target target(FindIn(tables_, change.table), change.table, change.position);
    if constexpr (requires { change.where; }) {
      if (change.where) {
        target.scope.Bind(*change.where);
      }
    }
    return target;
  };
  if (auto* update = std::get_if<Update>(&statement)) {
    Change(*update, targetOf(*update));
  } else if (auto* insert = std::get_if<Insert>(&statement)) {
    Change(*insert, targetOf(*insert));
  } else if (auto* removal = std::get_if<Delete>(&statement)) {
    Change(*removal, targetOf(*removal));
  }
}

Json MemoryTables::AsJson() const {
  Json tables = Json::object();
  for (const auto& [name, table] : tables_) {
    Json rows = Json::array();
    for (const Row& row : table.rows) {
      Json values = Json::array();
      for (const Value& value : row) {
        values.push_back(ToJson(value));
      }
      rows.push_back(std::move(values));
    }
    tables[name] = Json::object({{"columns", table.columns}, {"rows", std::move(rows)}});
  }
  return tables;
}

}  // namespace td::recording
