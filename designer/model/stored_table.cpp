#include "designer/model/stored_table.h"

#include <algorithm>
#include <utility>

#include "sql_support/sql_scanner.h"

namespace td::designer {
namespace {

// Where the columns of a result go.
struct Split {
  std::vector<std::size_t> known;
  std::vector<std::size_t> others;
  std::optional<std::size_t> link;
  ColumnNamesRef knownNames;
  ColumnNamesRef otherNames;
};

Split SplitColumns(const ColumnNames& names, const TableAccess& access) {
  Split split;
  std::vector<std::string> known;
  std::vector<std::string> others;
  for (const KnownColumn& column : access.known) {
    if (const auto index = names.Find(column.name)) {
      split.known.push_back(*index);
      known.emplace_back(column.name);
    }
  }
  for (std::size_t i = 0; i < names.Size(); ++i) {
    if (EqualWords(names.Name(i), access.link)) {
      split.link = i;
    } else if (FindColumn(access.known, names.Name(i)) == nullptr) {
      split.others.push_back(i);
      others.push_back(names.Name(i));
    }
  }
  split.knownNames = std::make_shared<const ColumnNames>(std::move(known));
  split.otherNames = std::make_shared<const ColumnNames>(std::move(others));
  return split;
}

Row ReadRow(const MemoryRows& rows, std::size_t row, const std::vector<std::size_t>& columns,
            const ColumnNamesRef& names) {
  std::vector<Value> values(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) rows.Read(row, columns[i], values[i]);
  return {names, std::move(values)};
}

bool Holds(std::span<const std::string> names, std::string_view wanted) {
  return std::ranges::any_of(
      names, [wanted](const std::string& name) { return EqualWords(name, wanted); });
}

}  // namespace

TableAccess FormatAccess() {
  return {kFormatTable, FormatColumns(), kFormatKey};
}
TableAccess ItemAccess() {
  return {kItemTable, ItemColumns(), kFormatKey};
}
TableAccess VariableAccess() {
  return {kVariableTable, VariableColumns(), kBillTypeColumn};
}

StoredTable ReadTable(Transaction& transaction, const TableAccess& access,
                      const std::string& condition) {
  const auto rows =
      transaction.Run("select * from " + std::string(access.table) + " where " + condition);
  const Split split = SplitColumns(rows->Columns(), access);
  StoredTable table{.known = split.knownNames, .others = split.otherNames, .rows = {}, .links = {}};
  for (std::size_t row = 0; row < rows->RowCount(); ++row) {
    table.rows.push_back({ReadRow(*rows, row, split.known, split.knownNames),
                          ReadRow(*rows, row, split.others, split.otherNames)});
    Value link = Null{};
    if (split.link) rows->Read(row, *split.link, link);
    table.links.push_back(std::move(link));
  }
  return table;
}

std::string Assignment(const Transaction& transaction, std::string_view column,
                       const Value& value) {
  return std::string(column) + "=" + transaction.Literal(value);
}

std::string Condition(const Transaction& transaction, std::string_view column, const Value& value) {
  if (IsNull(value)) return std::string(column) + " is null";
  return Assignment(transaction, column, value);
}

std::string QuotedName(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + "\"";
}

Value FirstValue(Transaction& transaction, const std::string& sql) {
  const auto rows = transaction.Run(sql);
  Value value = Null{};
  if (rows->RowCount() > 0) rows->Read(0, 0, value);
  return value;
}

void ColumnList::Add(std::string_view column, const Value& value) {
  entries_.push_back({std::string(column), transaction_.Literal(value)});
}

void ColumnList::AddQuoted(std::string_view column, const Value& value) {
  entries_.push_back({QuotedName(column), transaction_.Literal(value)});
}

void ColumnList::AddKnown(const Row& row, const ColumnNames& names) {
  for (std::size_t i = 0; i < names.Size(); ++i) {
    if (row.Has(names.Name(i))) Add(names.Name(i), row.Get(names.Name(i)));
  }
}

void ColumnList::AddOthers(const Row& row, const ColumnNames& names,
                           std::span<const std::string> without) {
  for (std::size_t i = 0; i < names.Size(); ++i) {
    const std::string& name = names.Name(i);
    if (row.Has(name) && !Holds(without, name)) AddQuoted(name, row.Get(name));
  }
}

void ColumnList::AddFrom(const StoredRow& row, std::span<const std::string> names) {
  for (const std::string& name : names) {
    if (!row.known.Has(name)) AddQuoted(name, row.others.Get(name));
  }
}

void ColumnList::AddChanges(const Row& before, const Row& after) {
  for (std::size_t i = 0; i < before.Size(); ++i) {
    const std::string& name = before.Names().Name(i);
    if (after.Has(name) && !MeanTheSame(before.At(i), after.Get(name))) Add(name, after.Get(name));
  }
}

std::string ColumnList::InsertInto(std::string_view table) const {
  std::string names;
  std::string values;
  for (const Entry& entry : entries_) {
    names.append(names.empty() ? "" : ",").append(entry.name);
    values.append(values.empty() ? "" : ",").append(entry.literal);
  }
  return "insert into " + std::string(table) + "(" + names + ") values(" + values + ")";
}

std::string ColumnList::UpdateOf(std::string_view table, const std::string& condition) const {
  std::string sql = "update " + std::string(table) + " set ";
  for (const Entry& entry : entries_) {
    sql.append(&entry == &entries_.front() ? "" : ",").append(entry.name);
    sql.append("=").append(entry.literal);
  }
  return sql + " where " + condition;
}

}  // namespace td::designer
