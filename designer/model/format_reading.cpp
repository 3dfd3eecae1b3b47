#include "designer/model/format_reading.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "designer/model/stored_table.h"

namespace td::designer {
namespace {

// Band by band: the order of two items of different bands means nothing, and each engine has
// another.
ItemList ItemsOf(std::vector<StoredRow> rows, ItemId& lastId) {
  std::ranges::stable_sort(rows, {},
                           [](const StoredRow& row) { return row.known.Number("FSite"); });
  ItemList items;
  for (StoredRow& row : rows) {
    items.Append({.id = ++lastId, .row = std::move(row.known), .others = std::move(row.others)});
  }
  return items;
}

FormatEntry EntryOf(const StoredRow& row, const Value& id) {
  return {.id = id,
          .billType = static_cast<int>(row.known.Number(kBillTypeColumn)),
          .name = row.known.Text("FTDBillName"),
          .selected = row.known.Flag("FSelected")};
}

}  // namespace

Failure NoSuchFormat(const std::string& name) {
  return {kInvalidCall, name.empty() ? "没有选定的套打格式" : "没有套打格式“" + name + "”"};
}

std::string IdCondition(const Transaction& transaction, const Value& id) {
  return Condition(transaction, kFormatKey, id);
}

std::string TypeCondition(const Transaction& transaction, int billType) {
  return Condition(transaction, kBillTypeColumn, std::int64_t{billType});
}

std::string NameCondition(const Transaction& transaction, const std::string& name) {
  return Condition(transaction, "FTDBillName", name);
}

std::vector<Variable> ReadVariables(Transaction& transaction, int billType) {
  StoredTable table =
      ReadTable(transaction, VariableAccess(), TypeCondition(transaction, billType));
  std::vector<Variable> variables;
  for (StoredRow& row : table.rows) {
    variables.push_back({std::move(row.known), std::move(row.others)});
  }
  return variables;
}

std::optional<Format> ReadFormat(Transaction& transaction, const std::string& condition) {
  StoredTable table = ReadTable(transaction, FormatAccess(), condition);
  if (table.rows.empty()) return std::nullopt;
  Format format;
  format.id = table.links.front();
  format.row = std::move(table.rows.front().known);
  format.others = std::move(table.rows.front().others);
  StoredTable items = ReadTable(transaction, ItemAccess(), IdCondition(transaction, format.id));
  format.itemColumns = items.known;
  format.items = ItemsOf(std::move(items.rows), format.lastItemId);
  format.variables = ReadVariables(transaction, format.BillType());
  return format;
}

Format ReadFormatById(Transaction& transaction, const Value& id) {
  auto format = ReadFormat(transaction, IdCondition(transaction, id));
  if (!format) throw NoSuchFormat({});
  return *std::move(format);
}

std::vector<FormatEntry> ReadEntries(Transaction& transaction, const std::string& condition) {
  const StoredTable table = ReadTable(transaction, FormatAccess(), condition);
  std::vector<FormatEntry> entries;
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    entries.push_back(EntryOf(table.rows[i], table.links[i]));
  }
  std::ranges::sort(entries, {}, [](const FormatEntry& entry) {
    return std::tuple(entry.billType, !entry.selected, entry.name);
  });
  return entries;
}

}  // namespace td::designer
