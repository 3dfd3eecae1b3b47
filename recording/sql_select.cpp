#include "recording/sql_select.h"

#include <algorithm>

#include "recording/sql_conditions.h"
#include "recording/sql_tokens.h"

namespace td::recording {
namespace {

struct ScopedRows {
  Scope scope;
  std::vector<Row> rows;
};

ScopedRows RowsOf(Source& source, const MemoryTables& tables);

ScopedRows RowsOfJoin(Source& join, const MemoryTables& tables) {
  const ScopedRows left = RowsOf(*join.left, tables);
  const ScopedRows right = RowsOf(*join.right, tables);
  std::vector<BoundColumn> columns = left.scope.Columns();
  columns.insert(columns.end(), right.scope.Columns().begin(), right.scope.Columns().end());
  ScopedRows joined{Scope(std::move(columns)), {}};
  joined.scope.Bind(join.on);
  for (const Row& leftRow : left.rows) {
    Row row = leftRow;
    row.resize(joined.scope.Columns().size());
    const auto rightPart = row.begin() + static_cast<std::ptrdiff_t>(leftRow.size());
    bool hasPartner = false;
    for (const Row& rightRow : right.rows) {
      std::copy(rightRow.begin(), rightRow.end(), rightPart);
      if (Holds(join.on, row)) {
        hasPartner = true;
        joined.rows.push_back(row);
      }
    }
    if (join.keepsLeft && !hasPartner) {
      std::fill(rightPart, row.end(), Null{});
      joined.rows.push_back(std::move(row));
    }
  }
  return joined;
}

ScopedRows RowsOf(Source& source, const MemoryTables& tables) {
  if (source.left) {
    return RowsOfJoin(source, tables);
  }
  if (source.derived) {
    TableData derived = RowsOf(*source.derived, tables);
    return {Scope(source.alias, derived.columns), std::move(derived.rows)};
  }
  const TableData* table = tables.Find(source.table);
  if (table == nullptr) {
    FailAt("对象名无效", source.position);
  }
  return {Scope(source.alias, table->columns), table->rows};
}

// The items with every "*" written out.
std::vector<SelectItem> SpelledOut(const std::vector<SelectItem>& items, const Scope& scope) {
  std::vector<SelectItem> spelled;
  for (const SelectItem& item : items) {
    if (!item.isAll) {
      spelled.push_back(item);
      scope.Bind(spelled.back().value);
      continue;
    }
    const std::size_t before = spelled.size();
    for (std::size_t i = 0; i < scope.Columns().size(); ++i) {
      const BoundColumn& column = scope.Columns()[i];
      if (item.qualifier.empty() || SameName(item.qualifier, column.qualifier)) {
        SelectItem single;
        single.value.kind = Scalar::Kind::kColumn;
        single.value.place = i;
        single.name = column.name;
        spelled.push_back(std::move(single));
      }
    }
    if (spelled.size() == before) {
      FailAt("列前缀无效", item.position);
    }
  }
  return spelled;
}

bool IsGrouped(const Scalar& value, const std::vector<std::size_t>& grouped) {
  if (value.kind == Scalar::Kind::kColumn) {
    return std::find(grouped.begin(), grouped.end(), value.place) != grouped.end();
  }
  return std::all_of(value.arguments.begin(), value.arguments.end(),
                     [&](const Scalar& argument) { return IsGrouped(argument, grouped); });
}

// Keeps the first row of each group.
void Group(Select& select, const std::vector<SelectItem>& items, ScopedRows& from) {
  std::vector<std::size_t> grouped;
  for (const Scalar& column : select.groupBy) {
    grouped.push_back(from.scope.Find(column));
  }
  for (const SelectItem& item : items) {
    if (!IsGrouped(item.value, grouped)) {
      FailAt("选择列表中的列不在分组中", item.position);
    }
  }
  std::vector<Row> kept;
  for (Row& row : from.rows) {
    const auto sameGroup = [&](const Row& other) {
      return std::all_of(grouped.begin(), grouped.end(),
                         [&](std::size_t column) { return row[column] == other[column]; });
    };
    if (std::none_of(kept.begin(), kept.end(), sameGroup)) {
      kept.push_back(std::move(row));
    }
  }
  from.rows = std::move(kept);
}

// The value by which a row is ordered. A name that the select list gives comes before a column of
// the tables.
Scalar OrderKey(OrderTerm& term, const std::vector<SelectItem>& items, const Scope& scope) {
  if (term.column.qualifier.empty()) {
    for (const SelectItem& item : items) {
      if (SameName(item.name, term.column.name)) {
        return item.value;
      }
    }
  }
  scope.Bind(term.column);
  return term.column;
}

void Order(Select& select, const std::vector<SelectItem>& items, ScopedRows& from) {
  // The last term first: a stable sort keeps what the later terms have ordered.
  for (auto term = select.orderBy.rbegin(); term != select.orderBy.rend(); ++term) {
    const Scalar key = OrderKey(*term, items, from.scope);
    std::stable_sort(from.rows.begin(), from.rows.end(), [&](const Row& a, const Row& b) {
      const Value valueA = ValueIn(key, a);
      const Value valueB = ValueIn(key, b);
      return term->descends ? SortsBefore(valueB, valueA) : SortsBefore(valueA, valueB);
    });
  }
}

}  // namespace

TableData RowsOf(Select& select, const MemoryTables& tables) {
  ScopedRows from = RowsOf(*select.from, tables);
  const std::vector<SelectItem> items = SpelledOut(select.items, from.scope);
  if (select.where) {
    from.scope.Bind(*select.where);
    std::erase_if(from.rows, [&](const Row& row) { return !Holds(*select.where, row); });
  }
  if (!select.groupBy.empty()) {
    Group(select, items, from);
  }
  Order(select, items, from);

  TableData result;
  for (const SelectItem& item : items) {
    result.columns.push_back(item.name);
  }
  for (const Row& row : from.rows) {
    Row& values = result.rows.emplace_back();
    for (const SelectItem& item : items) {
      values.push_back(ValueIn(item.value, row));
    }
  }
  return result;
}

}  // namespace td::recording
