#include "recording/recorded_tables.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "platform/standard_failures.h"
#include "state/print_context.h"
#include "store/statements.h"
#include "text/conversions.h"

namespace td::recording {
namespace {

using Columns = std::vector<std::string>;

const Columns kFormatColumns = {"FTDBillID",     "FTranType",    "FTDBillName",    "FSelected",
                                "FPaperSize",    "FPaperWidth",  "FPaperHeight",   "FOrientation",
                                "FRowsPerPage",  "FRowHeight",   "FAdjuctLeft",    "FAdjuctTop",
                                "FAdjuctHeader", "FQtysPerRow",  "FHeaderPerPage", "FFooterPerPage",
                                "FIntegralPage", "FPrintDevice", "FMarginleft",    "FMarginTop",
                                "FMarginRight",  "FMarginBottom"};
const Columns kItemColumns = {
    "FTDBillID",      "FSite",     "FLeft",      "FTop",          "FWidth",
    "FHeight",        "FTypeID",   "FIsVariant", "FMustPrint",    "FObjectFieldName",
    "FObjectCaption", "FFontName", "FFontSize",  "FFontBold",     "FFontItalic",
    "FAlignMent",     "FWordWrap", "FAutoSize",  "FFormatString", "Fborderwidth",
    "FPicturePath"};
const Columns kVariableColumns = {"FTranType", "FVarCaption", "FVarName"};
const Columns kPaperColumns = {"FIP",          "FTDBillName",  "FPaperSize", "FPaperWidth",
                               "FPaperHeight", "FOrientation", "FDevice"};
const Columns kPictureColumns = {"FItemID", "FPicture", "FPicPath"};

class TableReader {
 public:
  TableReader(Database& database, const RecordedRequest& request)
      : database_(database), request_(request) {
    context_.New_PromptString = request.connection;
    context_.New_TranType = request.billType;
    context_.TDBillName = request.format;
  }

  std::map<std::string, TableData> Read(const std::vector<Value>& goods) {
    ReadFormats();
    ReadItems();
    ReadPapers();
    ReadSettings();
    ReadPictures(goods);
    return std::move(tables_);
  }

 private:
  // Nothing where the statement fails.
  [[nodiscard]] std::optional<TableData> Query(const std::string& sql,
                                               const Columns& columns) const {
    for (;;) {
      try {
        return ReadRows(*database_.OpenQuery(request_.connection, sql), columns);
      } catch (const Failure& failure) {
        if (!IsLockConflict(failure)) return std::nullopt;
      }
    }
  }

  // Adds the rows that are not there yet.
  void Add(const std::string& table, const std::optional<TableData>& read) {
    if (!read) return;
    const auto [place, isNew] = tables_.try_emplace(table, *read);
    if (isNew) return;
    std::vector<Row>& rows = place->second.rows;
    for (const Row& row : read->rows) {
      if (std::ranges::find(rows, row) == rows.end()) rows.push_back(row);
    }
  }

  // The format that is found, and those of the same name, whose items are drawn with it.
  void ReadFormats() {
    Add("TDBill", Query(TemplateRowStatement(context_), kFormatColumns));
    const auto found = tables_.find("TDBill");
    if (found == tables_.end() || found->second.rows.empty()) return;
    const auto name = std::ranges::find(found->second.columns, "FTDBillName");
    if (name == found->second.columns.end()) return;
    const auto index = std::distance(found->second.columns.begin(), name);
    context_.TDBillName = ToText(found->second.rows.front()[static_cast<std::size_t>(index)]);
    Add("TDBill", Query(FormatSettingsStatement(context_, context_.TDBillName), kFormatColumns));
  }

  // In the order in which the bands get them.
  void ReadItems() {
    const std::string billType = ToText(context_.New_TranType);
    std::optional<TableData> items =
        Query("select t2.* from (select FTDBillID from TDBill where FTranType=" + billType +
                  " and FTDBillName='" + context_.TDBillName +
                  "') t1 Inner Join TDBillDetail t2 ON t1.FTDBillID=t2.FTDBillID",
              kItemColumns);
    Add("TDVariant",
        Query("select * from TDVariant where FTranType=" + billType, kVariableColumns));
    if (!items) return;
    std::vector<Row> ordered;
    for (int site = static_cast<int>(ItemSite::kHead); site <= static_cast<int>(ItemSite::kFoot);
         ++site) {
      TakeBand(static_cast<ItemSite>(site), items->rows, ordered);
    }
    std::ranges::move(items->rows, std::back_inserter(ordered));
    items->rows = std::move(ordered);
    tables_["TDBillDetail"] = std::move(*items);
  }

  void TakeBand(ItemSite site, std::vector<Row>& rows, std::vector<Row>& ordered) {
    Columns columns = kItemColumns;
    columns.emplace_back("FFieldName");
    const std::optional<TableData> band = Query(
        site == ItemSite::kHead ? HeaderItemStatement(context_) : ItemStatement(context_, site, {}),
        columns);
    if (!band || band->columns.empty() || band->columns.back() != "FFieldName") return;
    for (Row row : band->rows) {
      const Value field = row.back();
      row.pop_back();
      const auto found = std::ranges::find(rows, row);
      if (found == rows.end()) continue;
      KeepVariable(band->columns, row, field);
      ordered.push_back(std::move(*found));
      rows.erase(found);
    }
  }

  // A database may take texts for equal that a replay tells apart, by their case or blanks at their
  // end: the variable that it found is then written as the item names it.
  void KeepVariable(const Columns& columns, const Row& item, const Value& field) {
    const auto variables = tables_.find("TDVariant");
    const auto name = std::ranges::find(columns, "FObjectFieldName");
    if (IsNull(field) || variables == tables_.end() || name == columns.end()) return;
    TableData& table = variables->second;
    if (table.columns != kVariableColumns) return;
    const auto index = static_cast<std::size_t>(std::distance(columns.begin(), name));
    const Value& caption = item[index];
    const bool isKnown =
        std::ranges::any_of(table.rows, [&](const Row& row) { return row[1] == caption; });
    if (!isKnown) table.rows.push_back({std::int64_t{context_.New_TranType}, caption, field});
  }

  void ReadPapers() {
    for (const std::string& name : {request_.format, context_.TDBillName}) {
      Add("TDBill_PaperSize", Query(MachinePaperStatement(request_.machine, name), kPaperColumns));
    }
  }

  void ReadSettings() {
    const std::pair<const char*, std::string> settings[] = {
        {"MustShowComplexQty", ComplexQtySettingStatement()},
        {"PrintAdvertising", AdvertisingSettingStatement()}};
    for (const auto& [key, sql] : settings) {
      const std::optional<TableData> found = Query(sql, {"FValue"});
      if (!found) continue;
      TableData table{.columns = {"FKey", "FValue"}, .rows = {}};
      if (!found->rows.empty() && !found->columns.empty()) {
        table.rows.push_back({std::string(key), found->rows.front().front()});
      }
      Add("t_SystemProfile", table);
    }
  }

  void ReadPictures(const std::vector<Value>& goods) {
    for (const Value& number : goods) {
      try {
        Add("t_icitem_Picture", Query(GoodsPictureStatement(ToInteger32(number)), kPictureColumns));
      } catch (const Failure&) {
        continue;  // no goods have such a number
      }
    }
  }

  Database& database_;
  const RecordedRequest& request_;
  PrintContext context_;  // with the stored name of the format, once that is known
  std::map<std::string, TableData> tables_;
};

}  // namespace

bool HasColumn(Recordset& rows, const std::string& column) {
  try {
    return rows.Find(column) != nullptr;
  } catch (const Failure& failure) {
    return failure.Number() == kNoCurrentRow;
  }
}

TableData ReadRows(Recordset& rows, const std::vector<std::string>& columns) {
  TableData table;
  std::ranges::copy_if(columns, std::back_inserter(table.columns),
                       [&](const std::string& column) { return HasColumn(rows, column); });
  for (; !rows.Eof(); rows.MoveNext()) {
    Row row;
    for (const std::string& column : table.columns) row.push_back(rows.Field(column));
    table.rows.push_back(std::move(row));
  }
  return table;
}

std::map<std::string, TableData> ReadTablesOfPrint(Database& database,
                                                   const RecordedRequest& request,
                                                   const std::vector<Value>& goods) {
  return TableReader(database, request).Read(goods);
}

}  // namespace td::recording
