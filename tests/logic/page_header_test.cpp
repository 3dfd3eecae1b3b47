// The head of a page: where its items stand, and what each kind of item prints.
#include <gtest/gtest.h>

#include "items/draw_items.h"
#include "items/draw_page_header.h"
#include "scenario.h"
#include "window_of_scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

const Texts kWriting = {"TextBox", "PutParagraph", "PutText"};

// What the head writes, as "TextBox 甲".
Texts WrittenBy(const Scenario& scenario) {
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty()) << trace.Text();
  return trace.Outline(kWriting);
}

TEST(PageHeader, StandsAtTheSamePlaceOnEveryPage) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FTop", 50}}).Line({{"FSite", 1}, {"FTop", 60}});
  scenario.Format({{"FHeaderPerPage", 1},
                   {"FRowsPerPage", 2},
                   {"FAdjuctLeft", 7},
                   {"FAdjuctTop", 40},
                   {"FAdjuctHeader", -50}});
  const Trace trace = scenario.Bills({3}).Run();
  EXPECT_EQ(trace.Boxes(),
            (std::vector<Drawn>{{1, "文本", 107, 90, 500, 200}, {2, "文本", 107, 90, 500, 200}}));
  EXPECT_EQ(trace.Calls("DrawLine"), (Json{{107, 100, 607, 100}, {107, 100, 607, 100}}));
}

TEST(PageHeader, IgnoresTheRowOffsetsForEverythingItDraws) {
  Scenario scenario;
  scenario.Set("pictures", Json::array({"logo.png"}));
  scenario.Item({{"FSite", 1}}).Line({{"FSite", 1}});
  scenario.Item({{"FSite", 1}, {"FTypeID", 2}, {"FPicturePath", "logo.png"}});
  WindowOfScenario window(scenario);
  window.State().CurrentRowTop = 900;
  window.State().BandShift = 33;
  DrawPageHeader(window.Window());
  const Trace trace = window.Lines();
  EXPECT_EQ(trace.Puts("CurrentY"), Json::array({1000}));
  EXPECT_EQ(trace.BoxOf("文本").top, 1000);
  EXPECT_EQ(trace.Calls("DrawLine"), Json::array({{100, 1000, 600, 1000}}));
  EXPECT_EQ(trace.Calls("DrawPicture"), Json::array({{"file:logo.png", 100, 1000}}));
}

TEST(PageHeader, TakesItsValuesFromTheRowThatTheRunHasReached) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 1}});
  scenario.Format({{"FHeaderPerPage", 1}, {"FRowsPerPage", 2}}).Bills({3});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"行1"}, {"行3"}}));
}

TEST(PageHeader, AConstantPrintsItsCaptionAlsoWhereItRepeatsItsName) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FObjectFieldName", "销售单"}, {"FObjectCaption", "销售单"}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox 销售单"}));
}

TEST(PageHeader, AFreeStandingConstantIsWrittenAsTextAtTheCurrentPoint) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FAutoSize", 1}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"PutText 文本"}));
}

TEST(PageHeader, AValueFollowsItsCaption) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 1}, {"FObjectCaption", "客户："}});
  scenario.FieldItem("FName", {{"FSite", 1}, {"FObjectCaption", "客户："}, {"FAutoSize", 1}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox 客户：甲", "PutParagraph 客户：甲"}));
}

TEST(PageHeader, ACaptionThatRepeatsTheNameIsLeftOut) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 1}});
  scenario.FieldItem("FName", {{"FSite", 1}, {"FAutoSize", 1}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox 甲", "PutParagraph 甲"}));
}

TEST(PageHeader, ItemsThatAreNotMarkedFreeStandingAreBoxed) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FAutoSize", nullptr}});
  scenario.FieldItem("FName", {{"FSite", 1}, {"FAutoSize", nullptr}});
  scenario.FieldItem("fpageno", {{"FSite", 1}, {"FAutoSize", nullptr}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox 文本", "TextBox 甲", "TextBox 1"}));
}

TEST(PageHeader, ANullValuePrintsTheCaptionOfAFreeStandingItemOnly) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 1}, {"FObjectCaption", "客户："}});
  scenario.FieldItem("FName", {{"FSite", 1}, {"FObjectCaption", "客户："}, {"FAutoSize", 1}});
  scenario.Data({"FInterID", "FName"}, {{1, nullptr}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"PutParagraph 客户："}));
}

TEST(PageHeader, AColumnThatTheDataLackPrintsNothing) {
  Scenario scenario;
  scenario.FieldItem("FNowhere", {{"FSite", 1}, {"FObjectCaption", "客户："}});
  scenario.FieldItem("FNowhere", {{"FSite", 1}, {"FObjectCaption", "客户："}, {"FAutoSize", 1}});
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "后"}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox 后"}));
}

TEST(PageHeader, PicturesAndLeadingZerosAreNoMatterOfTheHead) {
  Scenario scenario;
  scenario.FieldItem("FQty", {{"FSite", 1}, {"FFormatString", "0.00"}});
  scenario.FieldItem("FRate", {{"FSite", 1}});
  scenario.Data({"FInterID", "FQty", "FRate"}, {{1, 5, ".5"}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox 5", "TextBox .5"}));
}

TEST(PageHeader, FieldsOfTheOtherBandsAreOrdinaryColumns) {
  Scenario scenario;
  scenario.FieldItem("forderid", {{"FSite", 1}}).FieldItem("ftotalpage", {{"FSite", 1}});
  scenario.Data({"FInterID", "ftotalpage"}, {{1, "列"}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox 列"}));
}

TEST(PageHeader, ThePageNumberCountsThePagesOfTheDocument) {
  Scenario scenario;
  scenario.FieldItem("FPAGENO", {{"FSite", 1}, {"FObjectCaption", "页"}});
  scenario.FieldItem("FPageNo", {{"FSite", 1}, {"FAutoSize", 1}}).Bills({1, 1});
  EXPECT_EQ(WrittenBy(scenario),
            (Texts{"TextBox 页1", "PutParagraph 1", "TextBox 页2", "PutParagraph 2"}));
}

TEST(PageHeader, ANullCaptionOfAConstantMakesNoCall) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FObjectCaption", nullptr}});
  scenario.Item({{"FSite", 1}, {"FObjectCaption", nullptr}, {"FAutoSize", 1}});
  EXPECT_EQ(WrittenBy(scenario), Texts{});
}

TEST(PageHeader, ANullCaptionOfAFieldKeepsTheCaptionOfTheItemBefore) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 1}, {"FObjectCaption", nullptr}});
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "前"}});
  scenario.FieldItem("FName", {{"FSite", 1}, {"FObjectCaption", nullptr}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox 甲", "TextBox 前", "TextBox 前甲"}));
}

TEST(PageHeader, AColumnIsNotKeptForTheItemBehind) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 1}});
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "固定"}, {"FIsVariant", 1}});
  EXPECT_EQ(WrittenBy(scenario), (Texts{"TextBox 甲", "TextBox 固定"}));
}

TEST(PageHeader, AlignsLikeTheOtherBands) {
  Scenario scenario;
  for (const Json& code : {Json(0), Json(2), Json(1), Json(3), Json(nullptr)}) {
    scenario.Item({{"FSite", 1}, {"FAlignMent", code}});
  }
  EXPECT_EQ(scenario.Run().Puts("TextAlign"), (Json{6, 7, 8, 8, 8}));
}

// Barcodes --------------------------------------------------------------------------------------

TEST(PageHeader, DrawsThreeKindsOfBarcodesFreeStandingOrNot) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FObjectFieldName", "<单号条码图>"}});
  scenario.Item({{"FSite", 1}, {"FObjectFieldName", "<用户条码图>"}, {"FAutoSize", 1}});
  scenario.Item({{"FSite", 1}, {"FObjectFieldName", "<随机条码图>"}, {"FTop", -20}});
  scenario.Data({"FInterID", "FBillNo", "FUserBarCode", "FBillNoBarCode"}, {{1, "一", "二", "三"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.PicturesDrawn(), (std::vector<Drawn>{{1, "barcode:一", 100, 1000, 500, 200},
                                                       {1, "barcode:二", 100, 1000, 500, 200},
                                                       {1, "barcode:三", 100, -20, 500, 200}}));
  EXPECT_TRUE(trace.Outline(kWriting).empty());
}

// Total page count ------------------------------------------------------------------------------

Scenario StampScenario() {
  Scenario scenario;
  scenario.FieldItem("FTotalPageNo", {{"FSite", 1}, {"FTop", 50}, {"FFontSize", 10.5}});
  scenario.FieldItem("FTotalPageNo", {{"FSite", 2}, {"FTop", 60}});
  return scenario;
}

TEST(PageHeader, KeepsThePlaceOfTheTotalPageCountOfTheFirstPage) {
  WindowOfScenario window(StampScenario());
  window.State().AdjuctLeft = 7;
  window.State().AdjuctTop = 40;
  window.State().CurrentRowTop = 900;
  window.State().BandShift = 33;
  DrawPageHeader(window.Window());
  const TotalPageStamp& stamp = window.State().Stamp(StampSlot::kFirstPage);
  EXPECT_EQ(stamp.StampTop, 50 + 40 + 900 + 33) << "as the page before left the offsets";
  EXPECT_EQ(stamp.StampLeft, 107);
  EXPECT_EQ(stamp.StampWidth, 500);
  EXPECT_EQ(stamp.StampHeight, 200);
  EXPECT_EQ(stamp.StampFontName, "宋体");
  EXPECT_EQ(stamp.StampFontSize, 10) << "halves go to the even number";
  EXPECT_TRUE(window.State().HasTotalPageStamp);
  EXPECT_TRUE(window.Lines().Outline().empty()) << "nothing is drawn";
}

TEST(PageHeader, KeepsThePlaceOfLaterPagesApart) {
  WindowOfScenario window(StampScenario());
  window.Window().vp.NewPage();
  window.State().CurrentRowTop = 600;
  DrawPageHeader(window.Window());
  EXPECT_EQ(window.State().Stamp(StampSlot::kFirstPage).StampFontName, "") << "not in use";
  EXPECT_EQ(window.State().Stamp(StampSlot::kLaterPage).StampTop, 650);
}

TEST(PageHeader, AndColumnHeadKeepTheirPlacesApart) {
  WindowOfScenario window(StampScenario());
  window.State().CurrentRowTop = 900;
  window.State().BandShift = 33;
  DrawItems(window.Window(), ItemSite::kColumnHead);
  EXPECT_EQ(window.State().Stamp(StampSlot::kColumnHead).StampTop, 60);
  EXPECT_EQ(window.State().Stamp(StampSlot::kFirstPage).StampFontName, "");
}

TEST(PageHeader, CountsEachTotalPageItemAndKeepsTheLast) {
  Scenario scenario = StampScenario();
  scenario.FieldItem("ftotalpageno", {{"FSite", 1}, {"FTop", 70}, {"FFontName", nullptr}});
  WindowOfScenario window(scenario);
  DrawPageHeader(window.Window());
  EXPECT_EQ(window.State().StampCount, 2);
  EXPECT_EQ(window.State().Stamp(StampSlot::kFirstPage).StampTop, 70);
  EXPECT_EQ(window.State().Stamp(StampSlot::kFirstPage).StampFontName, "宋体")
      << "Null leaves the name";
}

// Where the band ends ---------------------------------------------------------------------------

TEST(PageHeader, WithoutItemsRecordsTheCurrentPointAndDrawsNothing) {
  const Scenario scenario;
  WindowOfScenario window(scenario);
  window.Window().vp.PutCurrentY(777);
  (void)window.Lines();
  DrawPageHeader(window.Window());
  EXPECT_EQ(window.State().HeaderEndY, 777);
  EXPECT_EQ(window.Lines().Lines().size(), 1U) << "the query alone";
}

TEST(PageHeader, RecordsWhereTheLastItemLeftTheCurrentPoint) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FTop", 400}}).Item({{"FSite", 1}, {"FTop", 300}});
  WindowOfScenario window(scenario);
  DrawPageHeader(window.Window());
  EXPECT_EQ(window.State().HeaderEndY, 300);
}

TEST(PageHeader, ThatFailsRecordsNoEnd) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FTop", 400}});
  scenario.Item({{"FSite", 1}, {"FTypeID", 2}, {"FPicturePath", "missing.png"}});
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "后"}});
  WindowOfScenario window(scenario);
  window.State().HeaderEndY = 123;
  DrawPageHeader(window.Window());
  const Trace trace = window.Lines();
  EXPECT_EQ(window.State().HeaderEndY, 123);
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_EQ(trace.Texts(), (Texts{"文本"}));
}

TEST(PageHeader, OfDataWithoutRowsEndsAtItsFirstValue) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}}).FieldItem("FName", {{"FSite", 1}}).Item({{"FSite", 1}});
  scenario.Data({"FInterID", "FName"}, {});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"文本"}));
  EXPECT_EQ(trace.Messages().size(), 1U);
}

}  // namespace
}  // namespace td
