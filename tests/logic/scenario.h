// Scenarios and their traces, for tests of the logic.
//
//   TEST(Rows, AFullPageIsFollowedByANewOne) {
//     Scenario scenario;
//     scenario.Format({{"FRowsPerPage", 2}}).FieldItem("FQty");
//     scenario.Data({"FInterID", "FQty"}, {{1, 10}, {1, 20}, {1, 30}});
//     const Trace trace = scenario.Run();
//     EXPECT_EQ(trace.TextsByPage(), (Pages{{"10", "20"}, {"30"}}));
//   }
//
// A new Scenario has the format "销售单" of bill type 21, marked as selected and without items, the
// system settings, and print data of one row with the columns FInterID (1) and FName ("甲"). Run()
// makes one silent DoPrint of it, unless the test adds calls of its own.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "trace.h"

namespace td {

class Scenario {
 public:
  // Column values or fields, laid over those that stand there by default: {{"FSite", 3}}. A null
  // is nullptr.
  using Fields = std::initializer_list<std::pair<const char*, Json>>;
  using Steps = std::vector<Json>;  // {"nextpage", {{"put", {{"Zoom", 75}}}}}

  Scenario();

  // Tables ------------------------------------------------------------------------------------
  // Changes columns of the format "销售单". By default: 10 rows a page of 300 twips, no offsets,
  // all switches off, no printer, paper width Null (so that the paper stays).
  Scenario& Format(Fields columns);
  // A further format; FTDBillID counts up, FSelected is 0. Give it at least FTDBillName.
  Scenario& AddFormat(Fields columns);
  // An item of "销售单". By default a constant text "文本" in the row band: FSite 3, FTypeID 0,
  // left 100, top 1000, 500 by 200, 宋体 9 points, aligned left, no format string.
  Scenario& Item(Fields columns);
  // An item that shows a column of the print data: its caption is the name of the variable, which
  // is registered for the column.
  Scenario& FieldItem(const std::string& column, Fields columns = {});
  Scenario& Line(Fields columns);  // FTypeID 1, Fborderwidth 1, 500 by 0
  // Registers a variable of bill type 21: its caption and the column of the print data.
  Scenario& Variable(const std::string& caption, const std::string& column);
  // A paper row of this machine for "销售单": FPaperSize 9, portrait, FDevice "P2".
  Scenario& MachinePaper(Fields columns);
  // A printer of a stock area for "销售单".
  Scenario& AreaPrinter(Fields columns);
  Scenario& Setting(const std::string& key, const Json& value);
  Scenario& GoodsPicture(int itemId, const Json& picture);  // picture: {{"base64", "…"}} or null
  Scenario& StockArea(const Json& area);                    // a row of t_icitem
  Scenario& DropColumn(const std::string& table, const std::string& column);
  Scenario& DropTable(const std::string& table);

  // Print data --------------------------------------------------------------------------------
  Scenario& Data(std::vector<std::string> columns,
                 std::initializer_list<std::initializer_list<Json>> rows);
  // Rows of bills: {3, 4} is a bill 1 of three rows and a bill 2 of four. Columns FInterID and
  // FName, which counts all rows: "行1", "行2", …
  Scenario& Bills(std::initializer_list<int> rowsOfBill);
  Scenario& NoClone();  // cloning the data fails

  // Calls -------------------------------------------------------------------------------------
  // Each adds one call; without any, Run() makes one Print(). Fields are those of a call, for
  // example {{"New_OnlyPrintVariantItem", true}}, {{"TDBillName", "…"}}, {{"data", "same"}}.
  Scenario& BlankRows(int rows);
  Scenario& Print(Fields fields = {});  // DoPrint, New_DoPrint true
  Scenario& Preview(Steps user = {}, Fields fields = {});
  Scenario& PrintByArea(Fields fields = {});
  Scenario& PreviewByArea(Steps user = {}, Fields fields = {});
  Scenario& OpenTDSet(Steps user = {}, Fields fields = {});
  Scenario& OpenAreaPrintSet(Steps user = {});

  // Surroundings ------------------------------------------------------------------------------
  // {{"on", "TextBox"}, {"nth", 2}, {"number", 5}, {"description", "…"}}
  Scenario& Fault(Fields fault);
  // Any other key of a scenario: Set("printers", {"A", "B"}).
  Scenario& Set(const std::string& key, const Json& value);

  // The scenario as it is replayed.
  [[nodiscard]] Json Document() const;
  [[nodiscard]] Trace Run() const;

 private:
  Scenario& AddRow(const std::string& table, Json row, Fields columns);
  Scenario& AddPrint(const char* name, bool isSilent, Steps user, Fields fields);

  Json document_ = Json::object();
  Json tables_ = Json::object();  // name → array of rows as objects
  Json data_;
  std::vector<std::pair<std::string, std::string>> droppedColumns_;
};

}  // namespace td
