#include "checker/format_database.h"

#include <algorithm>
#include <set>
#include <utility>
#include <variant>

#include "memory_rows/column_names.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td::checker {
namespace {

using recording::TableData;

constexpr std::string_view kItemNumber = "FCheckedItem";  // of an item among the format's

TableData TableOf(const StoredRows& rows) {
  return {rows.columns, rows.rows};
}

TableData Numbered(TableData items) {
  items.columns.emplace_back(kItemNumber);
  std::int64_t number = 0;
  for (recording::Row& row : items.rows) row.emplace_back(number++);
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

// The items belong to the format even if the database joined them to a second one of its name.
TableData OwnItems(const FormatRows& format) {
  TableData items = Numbered(TableOf(format.items));
  const auto isOwner = [](const std::string& column) { return column == "FTDBillID"; };
  const auto owner = std::ranges::find_if(items.columns, isOwner);
  const Value* number = format.Bill().Find("FTDBillID");
  if (owner == items.columns.end() || number == nullptr) return items;
  const auto place = static_cast<std::size_t>(owner - items.columns.begin());
  for (recording::Row& row : items.rows) row[place] = *number;
  return items;
}

std::map<std::string, TableData> TablesOf(const FormatRows& format, bool hasOthers) {
  std::map<std::string, TableData> tables;
  tables["TDBill"] = TableOf(format.bill);
  tables["TDBillDetail"] = OwnItems(format);
  // The query's own FFieldName comes behind the columns of the item.
  TableData& items = tables["TDBillDetail"];
  for (std::string& column : items.columns) {
    if (column == "FFieldName") column = "FCheckedField";
  }
  tables["TDVariant"] = FoundVariables(format);
  tables["TDBill_PaperSize"] = {{"FIP", "FTDBillName", "FPaperSize", "FPaperWidth", "FPaperHeight",
                                 "FOrientation", "FDevice"},
                                {}};
  if (!hasOthers) {
    tables["t_SystemProfile"] = {{"FKey", "FValue"}, {}};
    tables["t_icitem_Picture"] = {{"FItemID", "FPicture", "FPicPath"}, {}};
  }
  return tables;
}

// A cursor over an answer that tells which item it stands on.
class WatchedRows : public Recordset {
 public:
  WatchedRows(std::shared_ptr<const TableData> table, ItemWatcher& watcher)
      : table_(std::move(table)), names_(table_->columns), watcher_(watcher) {
    number_ = names_.Find(kItemNumber);
    if (number_) {
      for (std::size_t row = 0; row < table_->rows.size(); ++row) watcher_.ItemFetched(ItemAt(row));
    }
    Reach();
  }

  bool Eof() override { return row_ >= table_->rows.size(); }

  const Value& Field(std::string_view column) override {
    const Value* value = Find(column);
    if (value == nullptr) throw NoSuchColumnFailure(column);
    return *value;
  }

  const Value* Find(std::string_view column) override {
    const std::optional<std::size_t> index = names_.Find(column);
    if (!index) return nullptr;
    if (Eof()) throw NoCurrentRowFailure();
    const Value& value = table_->rows[row_][*index];
    if (number_) watcher_.ItemColumnRead(column, value);
    return &value;
  }

  void MoveNext() override {
    if (Eof()) throw NoCurrentRowFailure();
    ++row_;
    Reach();
  }

  void MoveFirst() override {
    if (table_->rows.empty()) throw NoCurrentRowFailure();
    row_ = 0;
    Reach();
  }

  void Close() override {
    row_ = table_->rows.size();
    Reach();
  }

  RecordsetRef Clone() override { return std::make_shared<WatchedRows>(table_, watcher_); }

 private:
  [[nodiscard]] std::size_t ItemAt(std::size_t row) const {
    return static_cast<std::size_t>(std::get<std::int64_t>(table_->rows[row][*number_]));
  }

  void Reach() {
    if (!number_) return;
    if (Eof()) {
      watcher_.ItemsEnded();
    } else {
      watcher_.ItemReached(ItemAt(row_));
    }
  }

  std::shared_ptr<const TableData> table_;
  ColumnNames names_;
  ItemWatcher& watcher_;
  std::optional<std::size_t> number_;
  std::size_t row_ = 0;
};

}  // namespace

FormatDatabase::FormatDatabase(const FormatRows& format, ItemWatcher& watcher, Database* others)
    : tables_(TablesOf(format, others != nullptr)), watcher_(watcher), others_(others) {}

FormatDatabase::Answer FormatDatabase::AnswerTo(const std::string& sql) {
  Answer& answer = answers_[sql];
  if (!answer) answer = std::make_shared<const recording::TableData>(tables_.Query(sql));
  return answer;
}

RecordsetRef FormatDatabase::OpenQuery(const std::string& connection, const std::string& sql,
                                       CursorType cursor, LockType lock) {
  try {
    return std::make_shared<WatchedRows>(AnswerTo(sql), watcher_);
  } catch (const Failure&) {
    if (others_ == nullptr) throw;
  }
  return others_->OpenQuery(connection, sql, cursor, lock);
}

std::unique_ptr<Connection> FormatDatabase::Connect(const std::string& /*connection*/) {
  throw Failure(kDatabaseFailed, "检查套打格式时不写数据库。");
}

}  // namespace td::checker
