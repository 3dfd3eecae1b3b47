// Which items of a format a band fetches.
#include <gtest/gtest.h>

#include <algorithm>

#include "items/draw_items.h"
#include "items/draw_page_header.h"
#include "scenario.h"
#include "window_of_scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

const std::string kRowItems =
    "select t2.*,t3.FVarName as FFieldName from ((select FTDBillID from TDBill where FtranType=21 "
    "and FTDBillName='销售单') t1 Inner Join TDBillDetail t2 ON t1.FTDBillID=t2.FTDBillID) Left "
    "Join (select * from TDVariant where FTranType=21) t3 ON t2.FObjectFieldName=t3.FVarCaption  "
    "where t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=3";
const std::string kHeadItems =
    "select t2.*,t3.FVarName as FFieldName from ((select FTDBillID from TDBill where FTranType=21 "
    "and FTDBillName='销售单') t1 Inner Join TDBillDetail t2 ON t1.FTDBillID=t2.FTDBillID) Left "
    "Join (select * from TDVariant where FTranType=21) t3 ON t2.FObjectFieldName=t3.FVarCaption  "
    "where t2.FSite=1";

TEST(ItemSelection, TheStatementOfABandNamesFormatBillTypeAndBand) {
  const Scenario scenario;
  WindowOfScenario window(scenario);
  DrawItems(window.Window(), ItemSite::kRow);
  EXPECT_EQ(window.Lines().Queries(), (Texts{kRowItems}));
}

TEST(ItemSelection, TheStatementOfTheHeadHasNoConditionOnThePosition) {
  const Scenario scenario;
  WindowOfScenario window(scenario);
  DrawPageHeader(window.Window());
  EXPECT_EQ(window.Lines().Queries(), (Texts{kHeadItems}));
}

TEST(ItemSelection, AFilterIsAddedAsAFurtherCondition) {
  const Scenario scenario;
  WindowOfScenario window(scenario);
  DrawItems(window.Window(), ItemSite::kRow, "t2.FTypeID=1");
  EXPECT_EQ(window.Lines().Queries(), (Texts{kRowItems + " and t2.FTypeID=1"}));
}

TEST(ItemSelection, APrePrintedSheetAddsItsConditionToBothStatements) {
  Scenario scenario;
  scenario.Print({{"New_OnlyPrintVariantItem", true}});
  WindowOfScenario window(scenario);
  DrawItems(window.Window(), ItemSite::kRow);
  DrawPageHeader(window.Window());
  EXPECT_EQ(window.Lines().Queries(), (Texts{kRowItems + " and (FIsVariant=1 or FMustPrint=1)",
                                             kHeadItems + " and (FIsVariant=1 or FMustPrint=1) "}));
}

TEST(ItemSelection, AFilterFetchesConstantItemsOfAPrePrintedSheet) {
  Scenario scenario;
  scenario.Line({{"FTop", 1100}}).FieldItem("FName");
  scenario.Print({{"New_OnlyPrintVariantItem", true}});
  WindowOfScenario window(scenario);
  DrawItems(window.Window(), ItemSite::kRow, "t2.FTypeID=1");
  const Trace trace = window.Lines();
  EXPECT_EQ(trace.Queries(), (Texts{kRowItems + " and t2.FTypeID=1"}));
  EXPECT_EQ(trace.Outline(), (Texts{"DrawLine"}));
}

TEST(ItemSelection, APrePrintedSheetGetsVariableAndMustPrintItemsOnly) {
  for (const int site : {1, 3}) {
    Scenario scenario;
    scenario.Item({{"FSite", site}, {"FObjectCaption", "固定"}});
    scenario.Item({{"FSite", site}, {"FObjectCaption", "必打"}, {"FMustPrint", 1}});
    scenario.Item({{"FSite", site}, {"FObjectCaption", "变量"}, {"FIsVariant", 1}});
    scenario.Item({{"FSite", site}, {"FIsVariant", nullptr}, {"FMustPrint", nullptr}});
    scenario.Print({{"New_OnlyPrintVariantItem", true}});
    EXPECT_EQ(scenario.Run().Texts(), (Texts{"必打", "变量"})) << "band " << site;
  }
}

TEST(ItemSelection, ANegativeOrMissingPositionHidesAnItemOfABand) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "左"}, {"FLeft", -1}});
  scenario.Item({{"FObjectCaption", "上"}, {"FTop", -0.5}});
  scenario.Item({{"FObjectCaption", "空"}, {"FTop", nullptr}});
  scenario.Item({{"FObjectCaption", "零"}, {"FLeft", 0}, {"FTop", 0}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"零"}));
}

TEST(ItemSelection, TheHeadDrawsItemsAtNegativePositions) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "左"}, {"FLeft", -30}});
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "上"}, {"FTop", -50}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.BoxOf("左"), (Drawn{1, "左", -30, 1000, 500, 200}));
  EXPECT_EQ(trace.BoxOf("上"), (Drawn{1, "上", 100, -50, 500, 200}));
}

TEST(ItemSelection, OtherFormatsBillTypesAndBandsStayOut) {
  Scenario scenario;
  scenario.AddFormat({{"FTDBillName", "另一张"}});
  scenario.AddFormat({{"FTDBillName", "销售单"}, {"FTranType", 12}});
  scenario.Item({{"FTDBillID", 2}, {"FObjectCaption", "另一张"}});
  scenario.Item({{"FTDBillID", 3}, {"FObjectCaption", "入库"}});
  scenario.Item({{"FSite", 6}, {"FObjectCaption", "无此带"}});
  scenario.Item({{"FObjectCaption", "本单"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"本单"}));
}

TEST(ItemSelection, ItemsAreDrawnInTheOrderInWhichTheDatabaseReturnsThem) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "乙"}, {"FTop", 2000}});
  scenario.Line({});
  scenario.Item({{"FObjectCaption", "甲"}, {"FTop", 0}});
  EXPECT_EQ(scenario.Run().Outline({"TextBox", "DrawLine"}),
            (Texts{"TextBox 乙", "DrawLine", "TextBox 甲"}));
}

TEST(ItemSelection, OtherKindsAreFetchedAndSkipped) {
  for (const int site : {1, 3}) {
    Scenario scenario;
    for (const Json& kind : {Json(3), Json(-1), Json(0.5), Json(nullptr)}) {
      scenario.Item({{"FSite", site}, {"FTypeID", kind}});
    }
    scenario.Item({{"FSite", site}, {"FObjectCaption", "后"}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Outline({"TextBox", "DrawLine", "DrawPicture"}), (Texts{"TextBox 后"}));
    EXPECT_EQ(trace.Puts("FontName").size(), 1U) << "nothing of them touches the surface";
    EXPECT_TRUE(trace.Messages().empty());
  }
}

TEST(ItemSelection, ABandWithoutItemsLeavesTheSurfaceUntouched) {
  const Scenario scenario;
  WindowOfScenario window(scenario);
  DrawItems(window.Window(), ItemSite::kRow);
  const Trace trace = window.Lines();
  EXPECT_EQ(trace.Lines().size(), 1U) << "the query alone\n" << trace.Text();
}

TEST(ItemSelection, TheItemsOfARowAreFetchedForEachRow) {
  Scenario scenario;
  scenario.Bills({3});
  const Texts queries = scenario.Run().Queries();
  EXPECT_EQ(std::ranges::count(queries, kRowItems), 3);
}

TEST(ItemSelection, AVariableRegisteredTwiceDrawsItsItemTwice) {
  Scenario scenario;
  scenario.Variable("品名", "FName").Variable("品名", "FCode");
  scenario.Item({{"FObjectFieldName", "品名"}, {"FObjectCaption", "品名"}});
  scenario.Data({"FInterID", "FName", "FCode"}, {{1, "甲", "A-1"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"甲", "A-1"}));
}

TEST(ItemSelection, AQuoteInTheFormatsNameBreaksTheStatementOfEachBand) {
  Scenario scenario;
  scenario.Format({{"FTDBillName", "销售'单"}}).Item({});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 5U) << "the bands of the one page\n" << trace.Text();
  EXPECT_TRUE(trace.Texts().empty());
  EXPECT_EQ(trace.After().at("PrintOk"), true) << "the run goes on";
}

}  // namespace
}  // namespace td
