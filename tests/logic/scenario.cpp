#include "scenario.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "recording/replay.h"

namespace td {
namespace {

constexpr const char* kFormat = "销售单";
constexpr int kTranType = 21;

Json FormatRow(int id, const char* name, int selected) {
  return Json{{"FTDBillID", id},         {"FTranType", kTranType},  {"FTDBillName", name},
              {"FSelected", selected},   {"FPaperSize", nullptr},   {"FPaperWidth", nullptr},
              {"FPaperHeight", nullptr}, {"FOrientation", nullptr}, {"FRowsPerPage", 10},
              {"FRowHeight", 300},       {"FAdjuctLeft", 0},        {"FAdjuctTop", 0},
              {"FAdjuctHeader", 0},      {"FQtysPerRow", 0},        {"FHeaderPerPage", 0},
              {"FFooterPerPage", 0},     {"FIntegralPage", 0},      {"FPrintDevice", nullptr},
              {"FMarginleft", nullptr},  {"FMarginTop", nullptr},   {"FMarginRight", nullptr},
              {"FMarginBottom", nullptr}};
}

Json ItemRow() {
  return Json{{"FTDBillID", 1},
              {"FSite", 3},
              {"FLeft", 100},
              {"FTop", 1000},
              {"FWidth", 500},
              {"FHeight", 200},
              {"FTypeID", 0},
              {"FIsVariant", 0},
              {"FMustPrint", 0},
              {"FObjectFieldName", ""},
              {"FObjectCaption", "文本"},
              {"FFontName", "宋体"},
              {"FFontSize", 9},
              {"FFontBold", 0},
              {"FFontItalic", 0},
              {"FAlignMent", 0},
              {"FWordWrap", 0},
              {"FAutoSize", 0},
              {"FFormatString", ""},
              {"Fborderwidth", 1},
              {"FPicturePath", ""}};
}

// Tables with their columns, in the order in which the rows' objects have them.
const Json& Columns() {
  static const Json kColumns = {
      {"TDBill", FormatRow(0, "", 0)},
      {"TDBillDetail", ItemRow()},
      {"TDVariant", {{"FTranType", 0}, {"FVarCaption", ""}, {"FVarName", ""}}},
      {"TDBill_PaperSize",
       {{"FIP", ""},
        {"FTDBillName", ""},
        {"FPaperSize", 0},
        {"FPaperWidth", 0},
        {"FPaperHeight", 0},
        {"FOrientation", 0},
        {"FDevice", ""}}},
      {"TDBill_AreaPrinterDevice",
       {{"FIp", ""},
        {"FTranType", 0},
        {"FTdBillName", ""},
        {"FStockArea", ""},
        {"FPrintDevice", ""}}},
      {"t_SystemProfile", {{"FKey", ""}, {"FValue", ""}}},
      {"t_icitem", {{"FItemID", 0}, {"FStockArea", ""}}},
      {"t_icitem_Picture", {{"FItemID", 0}, {"FPicture", nullptr}, {"FPicPath", ""}}},
  };
  return kColumns;
}

Json Laid(Json under, Scenario::Fields over) {
  for (const auto& [name, value] : over) {
    under[name] = value;
  }
  return under;
}

// Rows as objects → {"columns":[…],"rows":[…]}. A column that only some rows have is Null in the
// others.
Json TableOf(const Json& known, const Json& rows) {
  std::vector<std::string> columns;
  const auto add = [&](const Json& row) {
    for (const auto& [name, value] : row.items()) {
      if (std::find(columns.begin(), columns.end(), name) == columns.end()) {
        columns.push_back(name);
      }
    }
  };
  add(known);
  std::for_each(rows.begin(), rows.end(), add);
  Json table = Json::object({{"columns", columns}, {"rows", Json::array()}});
  for (const Json& row : rows) {
    Json values = Json::array();
    for (const std::string& column : columns) {
      values.push_back(row.contains(column) ? row.at(column) : Json(nullptr));
    }
    table["rows"].push_back(std::move(values));
  }
  return table;
}

void DropFrom(Json& table, const std::string& column) {
  Json& columns = table["columns"];
  const auto found = std::find(columns.begin(), columns.end(), column);
  ASSERT_NE(found, columns.end()) << "no column " << column;
  const auto index = static_cast<std::size_t>(found - columns.begin());
  columns.erase(index);
  for (Json& row : table["rows"]) {
    row.erase(index);
  }
}

}  // namespace

Scenario::Scenario() {
  for (const auto& [name, columns] : Columns().items()) {
    tables_[name] = Json::array();
  }
  tables_["TDBill"].push_back(FormatRow(1, kFormat, 1));
  Setting("MustShowComplexQty", "0").Setting("PrintAdvertising", "0");
  Data({"FInterID", "FName"}, {{1, "甲"}});
}

Scenario& Scenario::AddRow(const std::string& table, Json row, Fields columns) {
  tables_[table].push_back(Laid(std::move(row), columns));
  return *this;
}

Scenario& Scenario::Format(Fields columns) {
  Json& row = tables_["TDBill"].front();
  row = Laid(row, columns);
  return *this;
}

Scenario& Scenario::AddFormat(Fields columns) {
  const int id = static_cast<int>(tables_["TDBill"].size()) + 1;
  return AddRow("TDBill", FormatRow(id, "", 0), columns);
}

Scenario& Scenario::Item(Fields columns) {
  return AddRow("TDBillDetail", ItemRow(), columns);
}

Scenario& Scenario::FieldItem(const std::string& column, Fields columns) {
  Json row = ItemRow();
  row["FIsVariant"] = 1;
  row["FObjectFieldName"] = column;
  row["FObjectCaption"] = column;
  return Variable(column, column).AddRow("TDBillDetail", std::move(row), columns);
}

Scenario& Scenario::Line(Fields columns) {
  Json row = ItemRow();
  row["FTypeID"] = 1;
  row["FHeight"] = 0;
  return AddRow("TDBillDetail", std::move(row), columns);
}

Scenario& Scenario::Variable(const std::string& caption, const std::string& column) {
  const Json row = {{"FTranType", kTranType}, {"FVarCaption", caption}, {"FVarName", column}};
  Json& rows = tables_["TDVariant"];
  if (std::find(rows.begin(), rows.end(), row) == rows.end()) {
    rows.push_back(row);
  }
  return *this;
}

Scenario& Scenario::MachinePaper(Fields columns) {
  return AddRow("TDBill_PaperSize",
                Json{{"FIP", "192.168.1.10"},
                     {"FTDBillName", kFormat},
                     {"FPaperSize", 9},
                     {"FPaperWidth", 11906},
                     {"FPaperHeight", 16838},
                     {"FOrientation", 0},
                     {"FDevice", "P2"}},
                columns);
}

Scenario& Scenario::AreaPrinter(Fields columns) {
  return AddRow("TDBill_AreaPrinterDevice",
                Json{{"FIp", "192.168.1.10"},
                     {"FTranType", kTranType},
                     {"FTdBillName", kFormat},
                     {"FStockArea", "A"},
                     {"FPrintDevice", "P2"}},
                columns);
}

Scenario& Scenario::Setting(const std::string& key, const Json& value) {
  for (Json& row : tables_["t_SystemProfile"]) {
    if (row["FKey"] == key) {
      row["FValue"] = value;
      return *this;
    }
  }
  return AddRow("t_SystemProfile", Json{{"FKey", key}, {"FValue", value}}, {});
}

Scenario& Scenario::GoodsPicture(int itemId, const Json& picture) {
  return AddRow("t_icitem_Picture",
                Json{{"FItemID", itemId}, {"FPicture", picture}, {"FPicPath", ""}}, {});
}

Scenario& Scenario::StockArea(const Json& area) {
  const auto id = static_cast<int>(tables_["t_icitem"].size()) + 1;
  return AddRow("t_icitem", Json{{"FItemID", id}, {"FStockArea", area}}, {});
}

Scenario& Scenario::DropColumn(const std::string& table, const std::string& column) {
  droppedColumns_.emplace_back(table, column);
  return *this;
}

Scenario& Scenario::DropTable(const std::string& table) {
  tables_.erase(table);
  return *this;
}

Scenario& Scenario::Data(std::vector<std::string> columns,
                         std::initializer_list<std::initializer_list<Json>> rows) {
  data_ = Json::object({{"columns", std::move(columns)}, {"rows", Json::array()}});
  for (const auto& row : rows) {
    data_["rows"].push_back(std::vector<Json>(row));
  }
  return *this;
}

Scenario& Scenario::Bills(std::initializer_list<int> rowsOfBill) {
  Data({"FInterID", "FName"}, {});
  int bill = 0;
  int number = 0;
  for (const int rows : rowsOfBill) {
    ++bill;
    for (int i = 0; i < rows; ++i) {
      data_["rows"].push_back(std::vector<Json>{bill, "行" + std::to_string(++number)});
    }
  }
  return *this;
}

Scenario& Scenario::NoClone() {
  data_["clone"] = false;
  return *this;
}

Scenario& Scenario::BlankRows(int rows) {
  document_["calls"].push_back(Json{{"do", "PrintBlankRows"}, {"value", rows}});
  return *this;
}

Scenario& Scenario::AddPrint(const char* name, bool isSilent, Steps user, Fields fields) {
  const Json call = {{"do", name},
                     {"New_DoPrint", isSilent},
                     {"New_TranType", kTranType},
                     {"user", std::move(user)}};
  document_["calls"].push_back(Laid(call, fields));
  return *this;
}

Scenario& Scenario::Print(Fields fields) {
  return AddPrint("DoPrint", true, {}, fields);
}

Scenario& Scenario::Preview(Steps user, Fields fields) {
  return AddPrint("DoPrint", false, std::move(user), fields);
}

Scenario& Scenario::PrintByArea(Fields fields) {
  return AddPrint("DoPrint_GroupByArea", true, {}, fields);
}

Scenario& Scenario::PreviewByArea(Steps user, Fields fields) {
  return AddPrint("DoPrint_GroupByArea", false, std::move(user), fields);
}

Scenario& Scenario::OpenTDSet(Steps user, Fields fields) {
  const Json call = {{"do", "TDSet"}, {"TranType", kTranType}, {"user", std::move(user)}};
  document_["calls"].push_back(Laid(call, fields));
  return *this;
}

Scenario& Scenario::OpenAreaPrintSet(Steps user) {
  document_["calls"].push_back(Json{{"do", "frmAreaPrintSet"}, {"user", std::move(user)}});
  return *this;
}

Scenario& Scenario::Fault(Fields fault) {
  document_["faults"].push_back(Laid(Json::object(), fault));
  return *this;
}

Scenario& Scenario::Set(const std::string& key, const Json& value) {
  document_[key] = value;
  return *this;
}

Json Scenario::Document() const {
  Scenario complete = *this;
  if (!document_.contains("calls")) {
    complete.Print();
  }
  Json document = complete.document_;
  for (Json& call : document["calls"]) {
    const bool prints = call["do"] == "DoPrint" || call["do"] == "DoPrint_GroupByArea";
    if (prints && !call.contains("data")) {
      call["data"] = data_;
    }
  }
  for (const auto& [name, rows] : tables_.items()) {
    document["tables"][name] = TableOf(Columns().value(name, Json::object()), rows);
  }
  for (const auto& [table, column] : droppedColumns_) {
    DropFrom(document["tables"][table], column);
  }
  return document;
}

Trace Scenario::Run() const {
  recording::Recording recorded = recording::Replay(Document());
  return Trace(std::move(recorded.trace), std::move(recorded.tables));
}

}  // namespace td
