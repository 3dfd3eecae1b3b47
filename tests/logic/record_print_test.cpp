// Scenarios that are made of a database: they print like it.
#include "recording/record_print.h"

#include <gtest/gtest.h>

#include <map>

#include "recording/masking.h"
#include "recording/recording_database.h"
#include "recording/replay.h"
#include "scenario.h"

namespace td {
namespace {

using recording::Json;
using recording::RecordedPrint;

// The tables of a scenario as the database of an application, and its rows as the data.
class Application {
 public:
  explicit Application(const Scenario& scenario)
      : document_(scenario.Document()),
        read_(recording::ReadScenario(document_)),
        recorder_({}),
        tables_(read_.tables),
        database_(recorder_, tables_) {}

  RecordedPrint Record(const std::string& format = {}) {
    recording::RecordedRequest request;
    request.connection = "shop";
    request.billType = 21;
    request.format = format;
    request.machine = read_.machine;
    request.printers = read_.printers;
    request.canLoad = [](const std::string& path) { return path == "/logo.png"; };
    if (document_["calls"].size() > 1) request.blankRows = document_["calls"][0]["value"];
    const Json& print = document_["calls"].back();
    request.onlyVariantItems = print.value("New_OnlyPrintVariantItem", false);
    request.byArea = print["do"] == "DoPrint_GroupByArea";
    const auto& rows =
        std::get<recording::PrintRows>(std::get<recording::Print>(read_.calls.back().action).data);
    return RecordPrint(database_, request,
                       std::make_shared<recording::RecordingRecordset>(
                           recorder_, std::make_shared<recording::TableData>(rows.table), true));
  }

 private:
  Json document_;
  recording::Scenario read_;
  recording::Recorder recorder_;
  recording::MemoryTables tables_;
  recording::RecordingDatabase database_;
};

// Where the cursors stand is part of both traces: the recorded rows are all there.
void ExpectEqualTraces(const Json& one, const Json& other) {
  EXPECT_EQ(Json(recording::Replay(one).trace), Json(recording::Replay(other).trace));
}

// A trace without its values: what was asked, in which order, and how long each text is.
std::vector<std::string> ShapeOf(const Json& scenario) {
  std::vector<std::string> shape;
  for (const Json& line : recording::Replay(scenario).trace) {
    std::string text = line["e"].get<std::string>();
    for (const char* key : {"f", "p", "n", "k", "window", "a"}) {
      if (line.contains(key) && line[key].is_string()) text += " " + line[key].get<std::string>();
    }
    if (line.contains("a") && line["a"].is_array() && line["a"].size() > 3) {
      for (std::size_t i = 1; i < line["a"].size(); ++i) text += " " + line["a"][i].dump();
    }
    shape.push_back(text);
  }
  return shape;
}

Scenario Shop() {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}, {"FFooterPerPage", 1}}).AddFormat({{"FTDBillName", "另"}});
  scenario.FieldItem("FCustName", {{"FSite", 1}}).FieldItem("FDate", {{"FSite", 1}});
  scenario.FieldItem("FName").FieldItem("FPrice", {{"FFormatString", "0.00"}});
  scenario.FieldItem("fcomplexqty").FieldItem("FGone").Line({});
  scenario.FieldItem("ftotalpage", {{"FSite", 5}}).FieldItem("ftotalpageno", {{"FSite", 5}});
  scenario.Item({{"FObjectFieldName", "<单号条码图>"}, {"FSite", 1}});
  scenario.Item({{"FObjectFieldName", "<商品图片>"}});
  scenario.Item({{"FTypeID", 2}, {"FPicturePath", "/logo.png"}, {"FSite", 2}});
  scenario.Item({{"FTop", -1}, {"FObjectCaption", "隐藏"}});
  scenario.Setting("MustShowComplexQty", "1");
  scenario.GoodsPicture(7, {{"base64", "AQID"}}).GoodsPicture(9, {{"base64", "AQID"}});
  scenario.Data({"FInterID", "FBillNo", "FCustName", "FDate", "FName", "FPrice", "FQty", "FMainQty",
                 "FUnit", "FAmount", "FItemiD", "FSecret"},
                {{1001, "XD-2403-0002", "江城商店", "2024-03-05", "大米 5kg", 12.5, 3, 1, "袋",
                  37.5, 7, "暗"},
                 {1001, "XD-2403-0002", "江城商店", "2024-03-05", "小计", nullptr, 3, -999.99,
                  nullptr, 37.5, nullptr, "暗"},
                 {1002, "XD-2403-0003", nullptr, "2024-03-06 10:30:00", "油", "8.05", 0, 0, "瓶", 0,
                  8, "暗"}});
  return scenario;
}

TEST(RecordPrint, AScenarioPrintsLikeItsDatabase) {
  const Scenario shop = Shop();
  Json original = shop.Document();
  original["pictures"] = {"/logo.png"};
  const RecordedPrint recorded = Application(shop).Record();
  EXPECT_EQ(recorded.difference, "");
  ExpectEqualTraces(recorded.scenario, original);
}

TEST(RecordPrint, OnlyWhatThePrintReadsIsRecorded) {
  const Json scenario = Application(Shop()).Record().scenario;
  const Json columns = scenario["calls"][0]["data"]["columns"];
  EXPECT_NE(std::find(columns.begin(), columns.end(), "FCustName"), columns.end());
  EXPECT_EQ(std::find(columns.begin(), columns.end(), "FSecret"), columns.end());
  EXPECT_EQ(scenario["tables"]["TDBill"]["rows"].size(), 1U) << "no other format";
  EXPECT_EQ(scenario["tables"]["t_icitem_Picture"]["rows"].size(), 1U) << "no other goods";
  EXPECT_EQ(scenario["tables"]["TDBillDetail"]["rows"].size(), 13U) << "hidden items included";
  EXPECT_EQ(scenario["pictures"], Json::array({"/logo.png"}));
  EXPECT_EQ(scenario.dump().find("shop"), std::string::npos) << "the connection text";
}

TEST(RecordPrint, NamesBlankRowsAreasAndPrePrintedSheetsAreKept) {
  Scenario scenario = Shop();
  scenario.BlankRows(1).Print({{"New_OnlyPrintVariantItem", true}, {"TDBillName", "销售单"}});
  Json original = scenario.Document();
  original["pictures"] = {"/logo.png"};
  ExpectEqualTraces(Application(scenario).Record("销售单").scenario, original);

  Scenario areas = Shop();
  areas.PrintByArea();
  Json byArea = areas.Document();
  byArea["pictures"] = {"/logo.png"};
  ExpectEqualTraces(Application(areas).Record().scenario, byArea);
}

TEST(RecordPrint, MissingTablesAndColumnsStayMissing) {
  Scenario scenario;
  scenario.FieldItem("FName").DropTable("t_SystemProfile").DropTable("TDBill_PaperSize");
  scenario.DropColumn("TDBill", "FIntegralPage").DropColumn("TDBillDetail", "FWordWrap");
  const RecordedPrint recorded = Application(scenario).Record();
  EXPECT_FALSE(recorded.scenario["tables"].contains("t_SystemProfile"));
  ExpectEqualTraces(recorded.scenario, scenario.Document());
}

TEST(RecordPrint, APrintThatFailsIsRecorded) {
  Scenario scenario;
  scenario.Format({{"FSelected", 0}});
  const RecordedPrint recorded = Application(scenario).Record();
  EXPECT_EQ(recorded.difference, "");
  ExpectEqualTraces(recorded.scenario, scenario.Document());
}

TEST(RecordPrint, ItsTextIsReadAgain) {
  const Json scenario = Application(Shop()).Record().scenario;
  const std::string text = recording::ScenarioText(scenario);
  EXPECT_EQ(recording::ParseScenario(text), scenario);
  EXPECT_NE(text.find("\n          [1001,\"XD"), std::string::npos) << text;
}

// What the masked scenario has in a column of the data.
std::vector<Json> Column(const Json& scenario, const std::string& column) {
  const Json& data = scenario["calls"].back()["data"];
  std::vector<Json> values;
  for (std::size_t i = 0; i < data["columns"].size(); ++i) {
    if (data["columns"][i] != column) continue;
    for (const Json& row : data["rows"]) values.push_back(row[i]);
  }
  return values;
}

TEST(MaskedScenario, HasOtherValuesOfTheSameKind) {
  const Json scenario = Application(Shop()).Record().scenario;
  const Json masked = recording::Masked(scenario);
  EXPECT_EQ(masked.dump().find("江城商店"), std::string::npos);
  EXPECT_EQ(masked.dump().find("2403-0002"), std::string::npos);
  const std::string bill = Column(masked, "FBillNo")[0];
  EXPECT_EQ(bill.size(), std::string("XD-2403-0002").size());
  EXPECT_EQ(bill[2], '-');
  EXPECT_TRUE(isupper(bill[0]) != 0 && isdigit(bill[3]) != 0) << bill;
  const std::string name = Column(masked, "FName")[0];
  EXPECT_EQ(name.size(), std::string("大米 5kg").size());
  EXPECT_TRUE(isdigit(name[7]) != 0 && islower(name[8]) != 0) << name;
  const std::string date = Column(masked, "FDate")[0];
  const int month = std::stoi(date.substr(5, 2));
  const int day = std::stoi(date.substr(8, 2));
  EXPECT_TRUE(date.starts_with("20") && month >= 1 && month <= 12 && day >= 1 && day <= 28) << date;
  EXPECT_TRUE(Column(masked, "FDate")[2].get<std::string>()[16] == ':')
      << Column(masked, "FDate")[2];
  const double price = Column(masked, "FPrice")[0];
  EXPECT_TRUE(price >= 11.1 && price <= 99.9 && price != 12.5) << price;
  EXPECT_EQ(Column(masked, "FPrice")[2].get<std::string>().size(), 4U);
}

TEST(MaskedScenario, KeepsWhatDecidesThePrint) {
  const Json masked = recording::Masked(Application(Shop()).Record().scenario);
  EXPECT_EQ(Column(masked, "FMainQty")[1], -999.99);
  EXPECT_EQ(Column(masked, "FMainQty")[2], 0);
  EXPECT_EQ(Column(masked, "FQty")[2], 0);
  EXPECT_EQ(Column(masked, "FCustName")[2], nullptr);
  EXPECT_EQ(Column(masked, "FItemiD")[0], 7);
  EXPECT_EQ(Column(masked, "FBillNo")[0], Column(masked, "FBillNo")[1]) << "of one bill";
  const std::vector<Json> bills = Column(masked, "FInterID");
  EXPECT_EQ(bills[0], bills[1]);
  EXPECT_NE(bills[0], bills[2]);
  EXPECT_NE(bills[0], 1001);
}

TEST(MaskedScenario, PrintsInTheSameShape) {
  const Json scenario = Application(Shop()).Record().scenario;
  EXPECT_EQ(ShapeOf(recording::Masked(scenario)), ShapeOf(scenario));
}

TEST(MaskedScenario, HidesTheMachineAndThePictures) {
  Scenario shop = Shop();
  shop.Set("machine", "10.1.2.3").MachinePaper({{"FIP", "10.1.2.3"}});
  shop.Print({{"TDBillName", "销售单"}});
  const Json scenario = Application(shop).Record("销售单").scenario;
  EXPECT_NE(scenario.dump().find("10.1.2.3"), std::string::npos);
  const Json masked = recording::Masked(scenario);
  EXPECT_EQ(masked.dump().find("10.1.2.3"), std::string::npos);
  EXPECT_EQ(masked.dump().find("AQID"), std::string::npos);
  EXPECT_EQ(ShapeOf(masked), ShapeOf(scenario)) << "the machine's paper is found";

  const Json foreign = recording::Masked(
      {{"machine", "10.1.2.3"},
       {"tables",
        {{"TDBill_PaperSize", {{"columns", {"FIP"}}, {"rows", {{"10.1.2.4"}, {"10.1.2.3"}}}}}}},
       {"calls", Json::array()}});
  EXPECT_EQ(foreign["tables"]["TDBill_PaperSize"]["rows"], Json({{"0.0.0.0"}, {"192.168.1.10"}}))
      << "another machine's paper isn't";
}

TEST(MaskedScenario, KeepsAreasApartHoweverManyThereAre) {
  Json rows = Json::array();
  for (int i = 0; i < 90; ++i) {
    const std::string letter =
        i < 26
            ? std::string(1, static_cast<char>('A' + i))
            : recording::Json::parse("\"\\u" + std::to_string(5000 + i) + "\"").get<std::string>();
    rows.push_back({1, letter + "1"});
    rows.push_back({1, letter + "2"});
  }
  const Json scenario = {{"calls",
                          {{{"do", "DoPrint_GroupByArea"},
                            {"data", {{"columns", {"FInterID", "FStockArea"}}, {"rows", rows}}}}}}};
  const std::vector<Json> masked = Column(recording::Masked(scenario), "FStockArea");
  std::map<std::string, int> firsts;
  for (const Json& area : masked) {
    const std::string text = area;
    ++firsts[text.substr(0, text.size() - 1)];
  }
  EXPECT_EQ(firsts.size(), 90U);
  for (const auto& [first, count] : firsts) EXPECT_EQ(count, 2) << first;
}

TEST(MaskedScenario, NumbersStayNumbersAndTextsStayTexts) {
  const Json rows = {{0, "0.00", "1.5E+3", "E5", -0.05, 2147483647, "True", ""}};
  const Json scenario = {
      {"calls",
       {{{"do", "DoPrint"},
         {"data", {{"columns", {"A", "B", "C", "D", "E", "F", "G", "H"}}, {"rows", rows}}}}}}};
  const Json row = recording::Masked(scenario)["calls"][0]["data"]["rows"][0];
  EXPECT_EQ(row[0], 0);
  EXPECT_EQ(row[1], "0.00");
  EXPECT_EQ(row[2].get<std::string>().substr(3), "E+3");
  EXPECT_NE(row[3].get<std::string>()[0], 'E') << "no number arises";
  EXPECT_LT(row[4].get<double>(), 0);
  EXPECT_GT(row[4].get<double>(), -0.1);
  EXPECT_LE(row[5].get<std::int64_t>(), 2147483647);
  EXPECT_EQ(std::to_string(row[5].get<std::int64_t>()).size(), 10U);
  EXPECT_EQ(row[7], "");
}

}  // namespace
}  // namespace td
