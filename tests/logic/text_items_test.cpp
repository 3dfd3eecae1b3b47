// Text items of the bands: their place, their looks, and what stands in front of the value.
#include <gtest/gtest.h>

#include "items/draw_items.h"
#include "scenario.h"
#include "window_of_scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// Data of one row: FName 甲, FCode A-1.
Scenario NamedScenario() {
  Scenario scenario;
  scenario.Data({"FInterID", "FName", "FCode"}, {{1, "甲", "A-1"}});
  return scenario;
}

TEST(TextItems, SetPointFontAndAlignmentInThisOrderAndThenDraw) {
  Scenario scenario;
  scenario.Item({{"FFontSize", 10.5}, {"FFontBold", 1}});
  WindowOfScenario window(scenario);
  DrawItems(window.Window(), ItemSite::kRow);
  const Trace trace = window.Lines();
  Texts steps;
  for (const Json& line : trace.Lines()) {
    if (line.contains("p")) steps.push_back(line["p"].get<std::string>() + " " + line["v"].dump());
    if (line.contains("f")) steps.push_back(line["f"]);
  }
  EXPECT_EQ(steps, (Texts{"CurrentX 100", "CurrentY 1000", "FontName \"宋体\"", "FontSize 10.5",
                          "FontBold true", "FontItalic false", "TextAlign 6", "TextBox"}));
}

TEST(TextItems, StandAtTheirPlacePlusAllOffsets) {
  Scenario scenario;
  scenario.Item({{"FLeft", 10}, {"FTop", 20}, {"FWidth", 30}, {"FHeight", 40}});
  WindowOfScenario window(scenario);
  window.State().AdjuctLeft = 5;
  window.State().AdjuctTop = 100;
  window.State().CurrentRowTop = 1000;
  window.State().BandShift = -50;
  DrawItems(window.Window(), ItemSite::kAfterRows);
  EXPECT_TRUE(window.Lines().Boxes().empty()) << "another band";
  DrawItems(window.Window(), ItemSite::kRow);
  const Trace trace = window.Lines();
  EXPECT_EQ(trace.BoxOf("文本"), (Drawn{0, "文本", 15, 1070, 30, 40})) << "the size as stored";
  EXPECT_EQ(trace.Puts("CurrentX"), Json::array({15}));
  EXPECT_EQ(trace.Puts("CurrentY"), Json::array({1070}));
}

TEST(TextItems, PassTheWordWrapOnAsItIs) {
  Scenario scenario;
  for (const Json& wrap : {Json(0), Json(1), Json(nullptr), Json("是"), Json(2.5)}) {
    scenario.Item({{"FWordWrap", wrap}});
  }
  Json wraps = Json::array();
  for (const Json& call : scenario.Run().Calls("TextBox")) wraps.push_back(call.back());
  EXPECT_EQ(wraps, (Json{0, 1, nullptr, "是", 2.5}));
}

TEST(TextItems, AlignLeftForZeroCentreForTwoAndRightForAllElse) {
  Scenario scenario;
  for (const Json& code : {Json(0), Json(2), Json(1), Json(3), Json(nullptr), Json(-1)}) {
    scenario.Item({{"FAlignMent", code}});
  }
  EXPECT_EQ(scenario.Run().Puts("TextAlign"), (Json{6, 7, 8, 8, 8, 8}));
}

TEST(TextItems, TakeAnyNonZeroNumberAsBoldOrItalic) {
  Scenario scenario;
  scenario.Item({{"FFontBold", -1}, {"FFontItalic", 0.5}});
  scenario.Item({{"FFontBold", "True"}, {"FFontItalic", "0"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("FontBold"), Json::array({true, true}));
  EXPECT_EQ(trace.Puts("FontItalic"), Json::array({true, false}));
}

TEST(TextItems, AConstantPrintsItsCaption) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "备注："}, {"FObjectFieldName", "备注"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"备注："}));
}

TEST(TextItems, AConstantWhoseCaptionRepeatsItsNameDrawsAnEmptyBox) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "备注"}, {"FObjectFieldName", "备注"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{""}));
}

TEST(TextItems, ACaptionStandsInFrontOfTheValue) {
  Scenario scenario = NamedScenario();
  scenario.FieldItem("FName", {{"FObjectCaption", "品名："}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"品名：甲"}));
}

TEST(TextItems, ACaptionThatRepeatsTheNameIsNotPrinted) {
  Scenario scenario = NamedScenario();
  scenario.Variable("品名", "FName");
  scenario.Item({{"FObjectFieldName", "品名"}, {"FObjectCaption", "品名"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"甲"}));
}

TEST(TextItems, ACaptionInAnotherCaseDoesNotRepeatTheName) {
  Scenario scenario = NamedScenario();
  scenario.FieldItem("FName", {{"FObjectCaption", "FNAME"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"FNAME甲"}));
}

TEST(TextItems, WithANullCaptionPrintTheCaptionOfTheItemBefore) {
  Scenario scenario = NamedScenario();
  scenario.Item({{"FObjectCaption", "前"}});
  scenario.Item({{"FObjectCaption", nullptr}});
  scenario.FieldItem("FName", {{"FObjectCaption", nullptr}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"前", "前", "前甲"}));
}

TEST(TextItems, WithANullCaptionKeepAlsoACaptionThatWasDropped) {
  Scenario scenario = NamedScenario();
  scenario.Item({{"FObjectCaption", "前"}});
  scenario.FieldItem("FName");
  scenario.Item({{"FObjectCaption", nullptr}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"前", "甲", ""}));
}

TEST(TextItems, WithANullCaptionAndANullNameAreNoRepetition) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "前"}});
  scenario.Item({{"FObjectCaption", nullptr}, {"FObjectFieldName", nullptr}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"前", "前"}));
}

TEST(TextItems, ACaptionDoesNotLiveFromRowToRow) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", nullptr}});
  scenario.Item({{"FObjectCaption", "后"}});
  scenario.Bills({2});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"", "后", "", "后"}));
}

TEST(TextItems, LinesAndPicturesBetweenLeaveTheCaption) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "前"}});
  scenario.Line({{"FObjectCaption", "线"}});
  scenario.Item({{"FObjectCaption", nullptr}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"前", "前"}));
}

TEST(TextItems, AVariableWithoutAColumnIsAConstant) {
  Scenario scenario = NamedScenario();
  scenario.Variable("品名", "");
  scenario.Item({{"FObjectFieldName", "品名"}, {"FObjectCaption", "品名："}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"品名："}));
}

TEST(TextItems, AColumnIsNotKeptForTheItemBehind) {
  Scenario scenario = NamedScenario();
  scenario.FieldItem("FName");
  scenario.Item({{"FObjectCaption", "固定"}, {"FIsVariant", 1}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"甲", "固定"}));
}

TEST(TextItems, ColumnsAreFoundInAnyCase) {
  Scenario scenario = NamedScenario();
  scenario.FieldItem("fname").FieldItem("FCODE");
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"甲", "A-1"}));
}

TEST(TextItems, ANamedFieldWinsOverAColumnOfThatNameInAnyCase) {
  Scenario scenario;
  scenario.FieldItem("FORDERID", {{"FObjectCaption", "第"}});
  scenario.Data({"FInterID", "FOrderId"}, {{1, 77}, {1, 78}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"第1", "第2"}));
}

}  // namespace
}  // namespace td
