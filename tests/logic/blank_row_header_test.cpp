// The head of a run that starts part-way down the form: no bill data on the first page, values
// without labels on later ones.
#include <gtest/gtest.h>

#include "items/draw_page_header.h"
#include "scenario.h"
#include "window_of_scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// One blank row and four rows on pages of two: row 2 on page 1, rows 3 and 4 on page 2. The head
// of page 2 sees row 3.
Scenario TwoPages() {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}}).Bills({4}).BlankRows(1).Print();
  return scenario;
}

// What the head writes, with a "--" where page 2 begins.
Texts WrittenBy(const Scenario& scenario) {
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty()) << trace.Text();
  Texts written = trace.Outline({"TextBox", "PutParagraph", "PutText", "NewPage"});
  for (std::string& text : written) {
    if (text == "NewPage") text = "--";
  }
  return written;
}

constexpr std::pair<const char*, int> kHead = {"FSite", 1};
constexpr std::pair<const char*, int> kFree = {"FAutoSize", 1};

TEST(BlankRowHeader, AConstantGetsACallThatPrintsNothing) {
  Scenario scenario = TwoPages();
  scenario.Item({kHead});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "--", "TextBox "}));
}

TEST(BlankRowHeader, AFreeStandingConstantPutsAnEmptyText) {
  Scenario scenario = TwoPages();
  scenario.Item({kHead, kFree});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"PutText ", "--", "PutText "}));
}

TEST(BlankRowHeader, TheVariableMarkDecidesAndNotTheColumn) {
  for (const Json& mark : {Json(0), Json(nullptr)}) {
    Scenario scenario = TwoPages();
    scenario.FieldItem("FName", {kHead, {"FIsVariant", mark}});
    EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "--", "TextBox "}));
  }
}

TEST(BlankRowHeader, WithoutTheMarksColumnAllItemsAreConstants) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("FName", {kHead, kFree}).DropColumn("TDBillDetail", "FIsVariant");
  EXPECT_EQ(WrittenBy(scenario), (Texts{"PutText ", "--", "PutText "}));
}

TEST(BlankRowHeader, ABoxedPageNumberStaysEmpty) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("fpageno", {kHead});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "--", "TextBox "}));
}

TEST(BlankRowHeader, AFreeStandingPageNumberPrintsWithoutItsLabel) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("FPAGENO", {kHead, kFree, {"FObjectCaption", "第"}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"PutParagraph 1", "--", "PutParagraph 2"}));
}

TEST(BlankRowHeader, ABoxedValueIsEmptyOnTheFirstPageAndPrintsOnLaterOnes) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("FName", {kHead, {"FObjectCaption", "客户："}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "--", "TextBox 行3"})) << "without its label";
}

TEST(BlankRowHeader, AFreeStandingValueIsEmptyOnTheFirstPageAndPrintsOnLaterOnes) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("FName", {kHead, kFree, {"FObjectCaption", "客户："}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"PutParagraph ", "--", "PutParagraph 行3"}));
}

TEST(BlankRowHeader, ItemsThatAreNotMarkedFreeStandingAreBoxed) {
  Scenario scenario = TwoPages();
  scenario.Item({kHead, {"FAutoSize", nullptr}});
  scenario.FieldItem("fpageno", {kHead, {"FAutoSize", nullptr}});
  scenario.FieldItem("FName", {kHead, {"FAutoSize", nullptr}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "TextBox ", "TextBox ", "--", "TextBox ",
                                        "TextBox ", "TextBox 行3"}));
}

TEST(BlankRowHeader, ABoxedNullMakesNoCallOnAnyPage) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("FNull", {kHead});
  scenario.Data({"FInterID", "FNull"}, {{1, nullptr}, {1, nullptr}, {1, nullptr}, {1, nullptr}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"--"}));
}

TEST(BlankRowHeader, AFreeStandingNullIsEmptyOnTheFirstPageAndMakesNoCallLater) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("FNull", {kHead, kFree});
  scenario.Data({"FInterID", "FNull"}, {{1, nullptr}, {1, nullptr}, {1, nullptr}, {1, nullptr}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"PutParagraph ", "--"}));
}

TEST(BlankRowHeader, AMissingColumnPrintsNothing) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("FNowhere", {kHead}).FieldItem("FNowhere", {kHead, kFree});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "PutParagraph ", "--"}))
      << "the first page needs no value";
}

TEST(BlankRowHeader, AVariableWithoutAColumnGoesByTheOneBefore) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("FName", {kHead});
  scenario.Item({kHead});
  scenario.Item({kHead, kFree, {"FIsVariant", 1}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "TextBox ", "PutParagraph ", "--",
                                        "TextBox 行3", "TextBox ", "PutParagraph 行3"}))
      << "a constant between them changes nothing";
}

TEST(BlankRowHeader, AVariableWithoutAColumnRepeatsThePageNumberBefore) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("fpageno", {kHead, kFree}).Item({kHead, kFree, {"FIsVariant", 1}});
  EXPECT_EQ(WrittenBy(scenario),
            (Texts{"PutParagraph 1", "PutParagraph 1", "--", "PutParagraph 2", "PutParagraph 2"}));
}

TEST(BlankRowHeader, AFirstVariableWithoutAColumnPrintsNothing) {
  Scenario scenario = TwoPages();
  scenario.Item({kHead, {"FIsVariant", 1}}).Item({kHead, kFree, {"FIsVariant", 1}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "PutParagraph ", "--"}));
}

TEST(BlankRowHeader, KnowsNoSpecialNames) {
  for (const char* name : {"<单号条码图>", "<用户条码图>", "<随机条码图>", "<商品图片>"}) {
    Scenario scenario = TwoPages();
    scenario.Item({kHead, {"FObjectFieldName", name}});
    scenario.FieldItem("FName", {kHead, {"FObjectFieldName", name}}).Variable(name, "FName");
    const Trace trace = scenario.Run();
    EXPECT_TRUE(trace.PicturesDrawn().empty());
    EXPECT_TRUE(trace.Lines("barcode").empty());
    EXPECT_EQ(trace.TextsByPage(), (Pages{{"", ""}, {"", "行3"}}));
  }
}

TEST(BlankRowHeader, FieldsOfTheOtherBandsAreOrdinaryColumns) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("forderid", {kHead});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "--"}));
}

TEST(BlankRowHeader, PrintsValuesWithoutTheirPicture) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("FQty", {kHead, {"FFormatString", "0.00"}});
  scenario.Data({"FInterID", "FQty"}, {{1, 1}, {1, 2}, {1, ".5"}, {1, 4}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "--", "TextBox .5"}));
}

TEST(BlankRowHeader, DrawsLinesAndPicturesOnTheFirstPageToo) {
  Scenario scenario = TwoPages();
  scenario.Set("pictures", Json::array({"logo.png"}));
  scenario.Line({kHead, {"Fborderwidth", 3}});
  scenario.Item({kHead, {"FTypeID", 2}, {"FPicturePath", "logo.png"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("PenWidth"), (Json{27, 27}));
  EXPECT_EQ(trace.Calls("DrawLine"), (Json{{100, 1000, 600, 1000}, {100, 1000, 600, 1000}}));
  EXPECT_EQ(trace.Calls("DrawPicture"),
            (Json{{"file:logo.png", 100, 1000}, {"file:logo.png", 100, 1000}}));
}

TEST(BlankRowHeader, SetsPointFontAndAlignmentAlsoOfWhatStaysEmpty) {
  Scenario scenario;
  scenario.Item({kHead, {"FLeft", -5}, {"FFontBold", 1}, {"FAlignMent", 2}});
  WindowOfScenario window(scenario);
  DrawBlankRowHeader(window.Window());
  const Trace trace = window.Lines();
  EXPECT_EQ(trace.Puts("CurrentX"), Json::array({-5}));
  EXPECT_EQ(trace.Puts("FontBold"), Json::array({true}));
  EXPECT_EQ(trace.Puts("TextAlign"), Json::array({7}));
  EXPECT_EQ(trace.BoxOf(""), (Drawn{0, "", -5, 1000, 500, 200}));
}

TEST(BlankRowHeader, IsDrawnOnEveryPageWhateverTheFormatSaysOfItsHead) {
  for (const int headerPerPage : {0, 1}) {
    Scenario scenario = TwoPages();
    scenario.Format({{"FHeaderPerPage", headerPerPage}}).Item({kHead});
    EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox ", "--", "TextBox "}));
  }
}

TEST(BlankRowHeader, KeepsThePlacesOfTheTotalPageCount) {
  Scenario scenario = TwoPages();
  scenario.FieldItem("ftotalpageno", {kHead, {"FTop", 50}, {"FFontName", "黑体"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Boxes(),
            (std::vector<Drawn>{{1, "2", 100, 50, 500, 200}, {2, "2", 100, 350, 500, 200}}))
      << "on page 2 with the offset of the last row before it";
  EXPECT_EQ(trace.Puts("FontName").back(), "黑体");
}

TEST(BlankRowHeader, DrawsNothingForATotalPageCountWhileThePageIsMade) {
  Scenario scenario;
  scenario.FieldItem("FTotalPageNo", {kHead, kFree});
  WindowOfScenario window(scenario);
  DrawBlankRowHeader(window.Window());
  EXPECT_TRUE(window.Lines().Outline().empty());
  EXPECT_EQ(window.State().StampCount, 1);
  EXPECT_EQ(window.State().Stamp(StampSlot::kFirstPage).StampTop, 1000);
}

TEST(BlankRowHeader, RecordsWhereTheBandEnds) {
  Scenario scenario;
  scenario.Item({kHead, {"FTop", 400}});
  WindowOfScenario window(scenario);
  DrawBlankRowHeader(window.Window());
  EXPECT_EQ(window.State().HeaderEndY, 400);
}

TEST(BlankRowHeader, WaitsForLocksAndEndsAtOtherFailures) {
  for (const auto& [description, boxes] :
       std::vector<std::pair<const char*, std::size_t>>{{"被锁", 3}, {"坏了", 1}}) {
    Scenario scenario;
    scenario.Fault({{"on", "TextBox"}, {"number", 5}, {"description", description}});
    scenario.Item({kHead}).Item({kHead});
    WindowOfScenario window(scenario);
    DrawBlankRowHeader(window.Window());
    const Trace trace = window.Lines();
    EXPECT_EQ(trace.Texts().size(), boxes);
    EXPECT_EQ(trace.Messages().size(), boxes == 1 ? 1U : 0U);
  }
}

}  // namespace
}  // namespace td
