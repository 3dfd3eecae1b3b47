// The run that breaks pages by stock area, and its differences from the plain run.
#include <gtest/gtest.h>

#include <algorithm>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// One word a band; the rows show FName.
Scenario AreaScenario() {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "头"}, {"FTop", 0}});
  scenario.Item({{"FSite", 2}, {"FObjectCaption", "列"}, {"FTop", 700}});
  scenario.FieldItem("FName", {{"FObjectCaption", ""}});
  scenario.Item({{"FSite", 4}, {"FObjectCaption", "计"}, {"FTop", 1300}});
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}, {"FTop", 1600}});
  return scenario;
}

Scenario& Areas(Scenario& scenario, std::initializer_list<std::initializer_list<Json>> rows) {
  return scenario.Data({"FInterID", "FName", "FStockArea"}, rows);
}

TEST(StockAreaRun, BreaksWhereTheFirstCharacterOfTheAreaChanges) {
  Scenario scenario = AreaScenario();
  Areas(scenario, {{1, "甲", "A1"}, {1, "乙", "A2"}, {1, "丙", "B1"}}).PrintByArea();
  EXPECT_EQ(scenario.Run().TextsByPage(),
            (Pages{{"头", "列", "甲", "乙", "计"}, {"列", "丙", "计", "脚"}}))
      << "no head on the new page, the foot only at the very end";
}

TEST(StockAreaRun, GroupsThatComeBackBreakAgain) {
  Scenario scenario = AreaScenario();
  Areas(scenario, {{1, "甲", "甲区"}, {1, "乙", "乙区"}, {1, "丙", "甲区"}}).PrintByArea();
  EXPECT_EQ(scenario.Run().TextsByPage().size(), 3U);
}

TEST(StockAreaRun, BillsOfOneAreaRunStraightOn) {
  Scenario scenario = AreaScenario();
  Areas(scenario, {{1, "甲", "A"}, {2, "乙", "A"}, {2, "丙", "B"}}).PrintByArea();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"头", "列", "甲", "乙", "计"}, {"列", "丙", "计", "脚"}}));
  EXPECT_EQ(trace.After().at("clone"), 1) << "moved to the bill at the area break only";
}

TEST(StockAreaRun, ABillThatSpansTwoAreasIsSplitAndTheCloneStays) {
  Scenario scenario = AreaScenario();
  Areas(scenario, {{1, "甲", "A"}, {1, "乙", "B"}}).PrintByArea();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage().size(), 2U);
  EXPECT_EQ(trace.After().at("clone"), 0);
}

TEST(StockAreaRun, AnAreaThatChangesAtAFullPageBreaksOnce) {
  Scenario scenario = AreaScenario();
  scenario.Format({{"FRowsPerPage", 2}});
  Areas(scenario, {{1, "甲", "A"}, {1, "乙", "A"}, {2, "丙", "B"}}).PrintByArea();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage().size(), 2U);
  EXPECT_EQ(trace.After().at("clone"), 0) << "stays behind";
}

TEST(StockAreaRun, ANullAreaJoinsTheAreaBeforeIt) {
  Scenario scenario = AreaScenario();
  Areas(scenario, {{1, "甲", "A"}, {1, "乙", nullptr}, {1, "丙", "A"}}).PrintByArea();
  EXPECT_EQ(scenario.Run().TextsByPage().size(), 1U);
}

TEST(StockAreaRun, AnEmptyAreaIsAnAreaOfItsOwn) {
  Scenario scenario = AreaScenario();
  Areas(scenario, {{1, "甲", "A"}, {1, "乙", ""}, {1, "丙", "A"}}).PrintByArea();
  EXPECT_EQ(scenario.Run().TextsByPage().size(), 3U);
}

TEST(StockAreaRun, WithoutAreasEachRowStandsOnAPageBehindAPageOfHeads) {
  Scenario scenario = AreaScenario();
  scenario.Bills({2}).PrintByArea();
  EXPECT_EQ(scenario.Run().TextsByPage(),
            (Pages{{"头", "列"}, {"列", "行1", "计"}, {"列", "行2", "计", "脚"}}));
}

TEST(StockAreaRun, ABillNumberThatIsNoWholeNumberEndsTheRun) {
  for (const Json& id : {Json("X1"), Json(1.5), Json(3e9)}) {
    Scenario scenario = AreaScenario();
    Areas(scenario, {{id, "甲", "A"}}).PrintByArea();
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Messages().size(), 1U) << id;
    EXPECT_TRUE(trace.Calls("EndDoc").empty());
  }
}

TEST(StockAreaRun, TheFootStandsTwiceOnTheLastPageOfAFootPerPageFormat) {
  Scenario scenario = AreaScenario();
  scenario.Format({{"FFooterPerPage", 1}, {"FHeaderPerPage", 1}});
  Areas(scenario, {{1, "甲", "A"}, {1, "乙", "B"}}).PrintByArea();
  EXPECT_EQ(scenario.Run().TextsByPage(),
            (Pages{{"头", "列", "甲", "计", "脚"}, {"头", "列", "乙", "计", "脚", "脚"}}));
}

TEST(StockAreaRun, BlankRowsHaveNoEffectAndAreNotSpent) {
  Scenario scenario = AreaScenario();
  Areas(scenario, {{1, "甲", "A"}}).BlankRows(3).PrintByArea();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"头", "列", "甲", "计", "脚"}}));
  EXPECT_EQ(trace.After().at("PrintBlankRows"), 3);
}

TEST(StockAreaRun, TouchesNeitherMarginsNorTheExportFile) {
  Scenario scenario = AreaScenario();
  scenario.PreviewByArea();
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Puts("MarginLeft").empty());
  EXPECT_TRUE(trace.Puts("ExportFile").empty());
  const Texts queries = trace.Queries();
  EXPECT_TRUE(std::none_of(queries.begin(), queries.end(), [](const std::string& query) {
    return query.find("PrintAdvertising") != std::string::npos;
  }));
  EXPECT_EQ(trace.Lines("show")[0].at("window"), "frmTdPrint_GroupByStockArea");
}

TEST(StockAreaRun, AFailingLoadEndsThereWithoutAMessage) {
  Scenario scenario = AreaScenario();
  scenario.Fault({{"on", "query"}, {"number", 5}, {"match", "MustShowComplexQty"}});
  scenario.PreviewByArea();
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_TRUE(trace.Calls("StartDoc").empty()) << "the activation starts nothing";
}

TEST(StockAreaRun, TheMachinesPaperCodeComesBeforeItsOrientation) {
  Scenario scenario = AreaScenario();
  scenario.MachinePaper({}).PrintByArea({{"TDBillName", "销售单"}});
  Texts properties;
  for (const Json& put : scenario.Run().Lines("put")) {
    const std::string name = put.at("p");
    if (name == "Device" || name == "PaperSize" || name == "Orientation") {
      properties.push_back(name);
    }
  }
  EXPECT_EQ(properties, (Texts{"Device", "PaperSize", "Orientation"}));
}

TEST(StockAreaRun, APrinterThatIsGoneEndsTheRun) {
  Scenario scenario = AreaScenario();
  scenario.MachinePaper({{"FDevice", "旧打印机"}}).PrintByArea({{"TDBillName", "销售单"}});
  const Trace trace = scenario.Run();
  ASSERT_EQ(trace.Messages().size(), 1U);
  EXPECT_EQ(trace.Messages()[0].find("将采用默认打印机"), std::string::npos);
  EXPECT_TRUE(trace.Calls("StartDoc").empty());
}

TEST(StockAreaRun, SumsTakeTaxFromItsColumnAndKnowNoMarkerRow) {
  Scenario scenario;
  for (const char* field : {"ftotalpage", "ftotalpage_qty", "ftotalpagetax",
                            "ftotalpagenotaxamount", "ftotalpage_mainqty", "fsumtotalpage"}) {
    scenario.FieldItem(field, {{"FSite", 5}, {"FObjectCaption", ""}});
  }
  scenario.Data({"FInterID", "FStockArea", "FAmount", "FQty", "FTax", "FNoTaxAmount", "FMainQty"},
                {{1, "A", 10, 2, "1.3元", 8.7, 5}, {1, "A", 20, 3, 2.6, 17.4, -999.99}});
  scenario.PrintByArea();
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"30", "5", "3.9", "26.1", "-994.99", "30"}));
}

TEST(StockAreaRun, SumsThatItDoesNotKeepHaveNoValue) {
  const Texts fields = {
      "ftotalpage_1",          "ftotalpage_retailamount", "ftotalpage_bzkamount",
      "ftotalpagetax_1",       "ftotalpagenotaxamount_1", "ftotalpage_sumqty",
      "ftotalpage_credit",     "ftotalpage_debit",        "ftotalpage_slaveqty",
      "ftotalpageselffreight", "ftotalpage_mainqty_1",    "FTotalPageFreight_Amount"};
  Scenario scenario;
  for (const std::string& field : fields) {
    scenario.FieldItem(field, {{"FSite", 5}, {"FObjectCaption", "值"}});
    scenario.FieldItem(field, {{"FSite", 5}, {"FObjectCaption", "值"}, {"FFormatString", "0.00"}});
  }
  scenario.PrintByArea();
  Texts expected;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    expected.insert(expected.end(), {"值", "值0.00"});
  }
  EXPECT_EQ(scenario.Run().Texts(), expected);
}

TEST(StockAreaRun, CapitalsOfASumThatItDoesNotKeepAreThoseOfZero) {
  Scenario scenario;
  for (const char* field :
       {"FTotalPage_1_Dx", "ftotalpagetax_1_dx", "ftotalpagenotaxamount_1_dx"}) {
    scenario.FieldItem(field, {{"FSite", 5}, {"FObjectCaption", "计"}});
  }
  scenario.PrintByArea();
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"计整", "计整", "计整"}));
}

TEST(StockAreaRun, FourPageSumsAreOrdinaryColumnsThere) {
  Scenario scenario;
  scenario.FieldItem("FSkd_TotalPage", {{"FObjectCaption", ""}});
  scenario.Data({"FInterID", "FStockArea", "FSkd_TotalPage"}, {{1, "A", "列值"}}).PrintByArea();
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"列值"}));
}

TEST(StockAreaRun, LabelsStandAsTheyAreAndImageNamesMeanNothing) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FObjectCaption", "FName"}});
  scenario.Item({{"FObjectCaption", "甲"}});
  scenario.Item({{"FObjectCaption", nullptr}, {"FTop", 1100}});
  scenario.Item({{"FObjectFieldName", "<单号条码图>"}, {"FObjectCaption", "码"}, {"FTop", 1200}});
  scenario.PrintByArea();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"FName甲", "甲", "", "码"}));
  EXPECT_TRUE(trace.PicturesDrawn().empty());
}

TEST(StockAreaRun, HeadLabelsEqualToTheItemsNameArePrintedAndTokensArePlain) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 1}, {"FObjectCaption", "FName"}});
  scenario.Item({{"FSite", 1}, {"FObjectFieldName", "<用户条码图>"}, {"FObjectCaption", "码"}});
  scenario.PrintByArea();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"FName甲", "码"}));
  EXPECT_TRUE(trace.Lines("barcode").empty());
}

TEST(StockAreaRun, PagesCountThroughTheWholeDocument) {
  Scenario scenario;
  scenario.FieldItem("FPageNo", {{"FSite", 2}, {"FObjectCaption", "FPageNo"}});
  Areas(scenario, {{1, "甲", "A"}, {2, "乙", "B"}, {3, "丙", "C"}}).PrintByArea();
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"FPageNo1", "FPageNo2", "FPageNo3"}));
}

TEST(StockAreaRun, AReRunGoesOnWithPageNumbersAndWithTheCloneWhereItWasLeft) {
  Scenario scenario;
  scenario.FieldItem("FBillNo", {{"FSite", 2}, {"FObjectCaption", ""}});
  scenario.FieldItem("fpageno", {{"FSite", 2}, {"FObjectCaption", ""}});
  scenario.Data({"FInterID", "FStockArea", "FBillNo"}, {{1, "A", "单1"}, {2, "B", "单2"}});
  scenario.PreviewByArea({Json{{"key", "pageset"}, {"confirm", true}}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"单1", "1", "单2", "2", "单2", "3", "单2", "4"}))
      << "the second run's first page shows the bill at which the first run ended";
}

TEST(StockAreaRun, AReRunKeepsTheOverallSumAndTheArea) {
  Scenario scenario;
  scenario.FieldItem("FSumTotalPage", {{"FSite", 5}, {"FObjectCaption", ""}});
  scenario.Data({"FInterID", "FStockArea", "FAmount"}, {{1, "A", 10}});
  scenario.PreviewByArea({Json{{"key", "pageset"}, {"confirm", true}}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"10", "20"}));
}

}  // namespace
}  // namespace td
