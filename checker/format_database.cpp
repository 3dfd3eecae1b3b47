#include "checker/format_database.h"

#include <set>
#include <utility>

#include "memory_rows/memory_recordset.h"
#include "platform/failure.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

using recording::TableData;

// The items, numbered. They belong to the format even where the database has found them by the name
// of a second one; and the query's own FFieldName comes behind their columns.
TableData ItemTable(const FormatRows& format) {
  TableData items{format.items.columns, format.items.rows};
  const Value* owner = format.Bill().Find("FTDBillID");
  for (std::size_t column = 0; column < items.columns.size(); ++column) {
    const std::string name = LowerCase(items.columns[column]);
    if (name == "ffieldname") items.columns[column] = "FCheckedField";
    if (name != "ftdbillid" || owner == nullptr) continue;
    for (recording::Row& row : items.rows) row[column] = *owner;
  }
  items.columns.emplace_back(kItemIndex);
  std::int64_t index = 0;
  for (recording::Row& row : items.rows) row.emplace_back(index++);
  return items;
}

// The variable that each item was found to have: one row a name, so that the run's join finds again
// what the database's found.
TableData FoundVariables(const FormatRows& format) {
  TableData variables{{"FTranType", "FVarCaption", "FVarName"}, {}};
  std::set<std::string> known;
  for (std::size_t i = 0; i < format.ItemCount(); ++i) {
    const StoredRow item = format.Item(i);
    const Value* field = item.Find("FFieldName");
    const std::string name = item.Text("FObjectFieldName");
    if (field == nullptr || IsNull(*field) || !known.insert(name).second) continue;
    variables.rows.push_back({std::int64_t{format.billType}, name, *field});
  }
  return variables;
}

std::map<std::string, TableData> TablesOf(const FormatRows& format, bool hasOthers) {
  std::map<std::string, TableData> tables;
  tables["TDBill"] = {format.bill.columns, format.bill.rows};
  tables["TDBillDetail"] = ItemTable(format);
  tables["TDVariant"] = FoundVariables(format);
  tables["TDBill_PaperSize"] = {{"FIP", "FTDBillName"}, {}};
  if (hasOthers) return tables;
  tables["t_SystemProfile"] = {{"FKey", "FValue"}, {}};
  tables["t_icitem_Picture"] = {{"FItemID", "FPicture", "FPicPath"}, {}};
  return tables;
}

}  // namespace

FormatDatabase::FormatDatabase(const FormatRows& format, Database* others)
    : tables_(TablesOf(format, others != nullptr)), others_(others) {}

const FormatDatabase::Answer& FormatDatabase::AnswerTo(const std::string& sql) {
  Answer& answer = answers_[sql];
  if (answer) return answer;
  const TableData table = tables_.Query(sql);
  auto rows = std::make_shared<MemoryRows>(std::make_shared<ColumnNames>(table.columns));
  for (const recording::Row& row : table.rows) {
    for (const Value& value : row) rows->Add(value);
  }
  answer = std::move(rows);
  return answer;
}

RecordsetRef FormatDatabase::OpenQuery(const std::string& connection, const std::string& sql,
                                       CursorType cursor, LockType lock) {
  try {
    return std::make_shared<MemoryRecordset>(AnswerTo(sql));
  } catch (const Failure&) {
    if (others_ == nullptr) throw;
  }
  return others_->OpenQuery(connection, sql, cursor, lock);
}

std::unique_ptr<Connection> FormatDatabase::Connect(const std::string& /*connection*/) {
  throw Failure(kDatabaseFailed, "检查套打格式时不写数据库。");
}

}  // namespace td::checker
