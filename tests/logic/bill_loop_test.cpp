// Rows become pages: full pages, bills, filler rows, and what ends a run.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

// Bands as texts: "头" 1, "列" 2, the row's name 3, "计" 4, "脚" 5, each where its offset is seen.
Scenario BandScenario() {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "头"}, {"FTop", 0}});
  scenario.Item({{"FSite", 2}, {"FObjectCaption", "列"}, {"FTop", 700}});
  scenario.FieldItem("FName");
  scenario.Item({{"FSite", 4}, {"FObjectCaption", "计"}, {"FTop", 1300}});
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}, {"FTop", 1600}});
  return scenario;
}

TEST(BillLoop, TwelveRowsOnPagesOfTenMakeTwoPagesWithTheFootOnTheLast) {
  Scenario scenario = BandScenario();
  scenario.Bills({12});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"头", "列", "行1", "行2", "行3", "行4", "行5", "行6",
                                         "行7", "行8", "行9", "行10", "计"},
                                        {"列", "行11", "行12", "计", "脚"}}));
}

TEST(BillLoop, AnExactlyFullPageIsFollowedByNoEmptyPage) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FRowsPerPage", 3}}).Bills({3});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"头", "列", "行1", "行2", "行3", "计", "脚"}}));
}

TEST(BillLoop, EachBillStartsOnAPageOfItsOwnWithItsHead) {
  Scenario scenario = BandScenario();
  scenario.Bills({3, 4});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"头", "列", "行1", "行2", "行3", "计", "脚"},
                                        {"头", "列", "行4", "行5", "行6", "行7", "计", "脚"}}));
}

TEST(BillLoop, RowNumbersRunThroughAllBillsWhilePageNumbersStartAnew) {
  Scenario scenario;
  scenario.FieldItem("FOrderId", {{"FObjectCaption", "FOrderId"}});
  scenario.FieldItem("FPageNo", {{"FSite", 5}});
  scenario.Bills({3, 4});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"1", "2", "3", "1"}, {"4", "5", "6", "7", "1"}}));
}

TEST(BillLoop, RowsStandOneRowHeightBelowEachOther) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FAdjuctTop", 40}, {"FAdjuctLeft", 7}}).Bills({3});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.BoxOf("行1"), (Drawn{1, "行1", 107, 1040, 500, 200}));
  EXPECT_EQ(trace.BoxOf("行3"), (Drawn{1, "行3", 107, 1640, 500, 200}));
  EXPECT_EQ(trace.BoxOf("计").top, 1300 + 40 + 600) << "rides on the last row";
  EXPECT_EQ(trace.BoxOf("脚").top, 1600 + 40 + 600);
  EXPECT_EQ(trace.BoxOf("列").top, 740);
}

TEST(BillLoop, PartPagesAreFilledWithTheRowsLines) {
  Scenario scenario = BandScenario();
  scenario.Line({{"FTop", 1250}});
  scenario.Format({{"FIntegralPage", 1}}).Bills({3});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("DrawLine").size(), 10U);
  EXPECT_EQ(trace.Calls("DrawLine").back(), (Json{100, 1250 + 9 * 300, 600, 1250 + 9 * 300}));
  EXPECT_EQ(trace.BoxOf("计").top, 1300 + 9 * 300) << "below the tenth row";
  EXPECT_EQ(trace.BoxOf("脚").top, 1600 + 9 * 300);
}

TEST(BillLoop, APrePrintedFormIsFilledWithNothingAndTheBandsStandAtTheSameHeight) {
  Scenario scenario;
  scenario.FieldItem("FName").Line({{"FTop", 1250}, {"FMustPrint", 1}});
  scenario.Item({{"FSite", 4}, {"FObjectCaption", "计"}, {"FTop", 1300}, {"FMustPrint", 1}});
  scenario.Format({{"FIntegralPage", 1}}).Bills({3});
  scenario.Print({{"New_OnlyPrintVariantItem", true}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("DrawLine").size(), 3U);
  EXPECT_EQ(trace.BoxOf("计").top, 1300 + 9 * 300);
}

TEST(BillLoop, ABillNumberOfZeroNeverDelimits) {
  Scenario scenario = BandScenario();
  scenario.Data({"FInterID", "FName"}, {{0, "甲"}, {0, "乙"}, {7, "丙"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"头", "列", "甲", "乙", "丙", "计", "脚"}}));
}

TEST(BillLoop, ARowOfNoBillEndsTheBillAndTheNextRowStartsNone) {
  Scenario scenario = BandScenario();
  scenario.Data({"FInterID", "FName"}, {{7, "甲"}, {0, "乙"}, {8, "丙"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(),
            (Pages{{"头", "列", "甲", "计", "脚"}, {"头", "列", "乙", "丙", "计", "脚"}}));
}

TEST(BillLoop, ANullBillNumberBelongsToNoBill) {
  Scenario scenario = BandScenario();
  scenario.Data({"FInterID", "FName"}, {{7, "甲"}, {nullptr, "乙"}, {8, "丙"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"头", "列", "甲", "乙", "丙", "计", "脚"}}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(BillLoop, AtABillBreakPicturesShowTheNextBillAndPlainTextsTheEndingOne) {
  Scenario scenario;
  scenario.FieldItem("FTotal", {{"FSite", 5}});
  scenario.FieldItem("FSum", {{"FSite", 5}, {"FFormatString", "0.00"}});
  scenario.Data({"FInterID", "FTotal", "FSum"}, {{1, "一", 1}, {2, "二", 2}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"一", "2.00"}, {"二", "2.00"}}))
      << "the first sum is the next bill's; behind the last row the parked clone serves";
}

TEST(BillLoop, TheCloneIsParkedOnTheFirstRowOfTheBillInProgress) {
  Scenario scenario = BandScenario();
  scenario.Bills({3, 4, 2});
  const Json after = scenario.Run().After();
  EXPECT_EQ(after.at("row"), 0) << "the cursor goes back";
  EXPECT_EQ(after.at("clone"), 7) << "the clone stays";
}

TEST(BillLoop, DataWithoutRowsMakesAFormAllTheSame) {
  Scenario scenario = BandScenario();
  scenario.Line({{"FTop", 1250}});
  scenario.Format({{"FIntegralPage", 1}}).Data({"FInterID", "FName"}, {});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"头", "列", "脚"}}));
  EXPECT_EQ(trace.Calls("DrawLine").size(), 10U);
  EXPECT_TRUE(trace.Messages().empty()) << "the last move to a first row fails and is forgiven";
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

TEST(BillLoop, AFormatWithoutItemsMakesItsPagesAllTheSame) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}}).Bills({3});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{}, {}}));
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

TEST(BillLoop, DataWithoutBillNumbersFailsTheRun) {
  Scenario scenario = BandScenario();
  scenario.Data({"FName"}, {{"甲"}, {"乙"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U) << trace.Text();
  EXPECT_EQ(trace.After().at("PrintOk"), false);
  EXPECT_TRUE(trace.Calls("EndDoc").empty());
}

TEST(BillLoop, ZeroRowsAPageMeansOneLongPage) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FRowsPerPage", 0}}).Bills({25});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage().size(), 1U);
  EXPECT_EQ(trace.BoxOf("行25").top, 1000 + 24 * 300);
}

TEST(BillLoop, TooManyRowsForASixteenBitCounterEndTheRun) {
  Scenario scenario;
  Json rows = Json::array();
  for (int row = 0; row < 32768; ++row) rows.push_back(Json{1});
  scenario.Format({{"FRowsPerPage", 32767}}).BlankRows(32767);  // no row is drawn, only counted
  scenario.Print({{"data", {{"columns", {"FInterID"}}, {"rows", rows}}}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (std::vector<std::string>{"溢出"}));
  for (const std::string& query : trace.Queries()) {
    EXPECT_EQ(query.find("t2.FSite=3"), std::string::npos) << "the number of row 32768 fails first";
  }
  EXPECT_EQ(trace.After().at("PrintOk"), false);
}

// What stands behind the rows: the foot, the memo and the end of the document.
std::vector<std::string> EndOf(Scenario scenario, bool byArea) {
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}});
  byArea ? scenario.PrintByArea() : scenario.Print();
  return scenario.Run().Outline({"TextBox", "PutText", "PutRichText", "EndDoc"});
}

TEST(BillLoop, AMemoIsWrittenOnALineOfItsOwnBehindTheFoot) {
  for (const bool byArea : {false, true}) {
    Scenario scenario;
    scenario.Set("memo", {{"text", "备注"}, {"rtf", "{\\rtf 备注}"}});
    EXPECT_EQ(EndOf(scenario, byArea),
              (std::vector<std::string>{"TextBox 脚", "PutText \r\n", "PutRichText {\\rtf 备注}",
                                        "EndDoc"}));
  }
}

TEST(BillLoop, WithoutAMemoNothingIsWrittenBehindTheFoot) {
  for (const bool byArea : {false, true}) {
    Scenario scenario;
    scenario.Set("memo", {{"text", ""}, {"rtf", "{\\rtf}"}});
    EXPECT_EQ(EndOf(Scenario(), byArea), (std::vector<std::string>{"TextBox 脚", "EndDoc"}));
    EXPECT_EQ(EndOf(scenario, byArea), (std::vector<std::string>{"TextBox 脚", "EndDoc"}))
        << "the plain text decides";
  }
}

TEST(BillLoop, ASilentRunWritesTheExportFileAndServesThePrinter) {
  Scenario scenario = BandScenario();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("ExportFormat"), Json::array({1}));
  EXPECT_EQ(trace.Puts("ExportFile"), Json::array({"c:\\订单.html"}));
  EXPECT_EQ(trace.Calls("PrintDoc"), Json::array({Json::array()})) << "without a dialog";
  EXPECT_EQ(trace.PageTexts().back(), "第1页   共1页");
}

TEST(BillLoop, ALockInTheMiddleOfAPageIsWaitedFor) {
  Scenario scenario = BandScenario();
  scenario.Fault({{"on", "NewPage"}, {"times", 3}, {"number", 5}, {"description", "表被锁定"}});
  scenario.Format({{"FRowsPerPage", 1}}).Bills({2});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("NewPage").size(), 4U);
  EXPECT_EQ(trace.TextsByPage().size(), 2U);
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(BillLoop, AnErrorThatNobodyForgivesLeavesTheWindowAsItStands) {
  Scenario scenario = BandScenario();
  scenario.Fault({{"on", "NewPage"}, {"number", 5}, {"description", "坏了"}});
  scenario.Format({{"FRowsPerPage", 1}}).Bills({2});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (std::vector<std::string>{"坏了"}));
  EXPECT_EQ(trace.Puts("MousePointer"), Json::array({11})) << "the pointer stays";
  EXPECT_EQ(trace.Lines("enable").size(), 3U) << "the buttons stay disabled";
  EXPECT_TRUE(trace.Calls("EndDoc").empty());
}

}  // namespace
}  // namespace td
