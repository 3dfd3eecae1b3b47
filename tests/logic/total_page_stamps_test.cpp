// The total page count, written onto finished pages when the document ends.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

// A document of `rows` rows with two rows a page and a total-page item in a band.
Scenario StampScenario(int rows, Scenario::Fields item) {
  Scenario scenario;
  scenario.FieldItem("FTotalPageNo", item);
  scenario.Format({{"FRowsPerPage", 2}}).Bills({rows});
  return scenario;
}

std::vector<double> Tops(const Trace& trace) {
  std::vector<double> tops;
  for (const Drawn& box : trace.Boxes()) tops.push_back(box.top);
  return tops;
}

TEST(TotalPageStamps, WithoutSuchAnItemNoPageIsReopened) {
  Scenario scenario;
  scenario.Bills({3});
  EXPECT_TRUE(scenario.Run().Calls("StartOverlay").empty());
}

TEST(TotalPageStamps, OnOnePageTheNumberOneIsStampedAtItsPlace) {
  const Trace trace = StampScenario(1, {{"FSite", 5}, {"FTop", 500}, {"FFontBold", 1}}).Run();
  EXPECT_EQ(trace.Boxes(), (std::vector<Drawn>{{1, "1", 100, 500, 500, 200}}));
  EXPECT_EQ(trace.Calls("TextBox").front().size(), 5U) << "no word-wrap flag";
  EXPECT_EQ(trace.Puts("FontBold").back(), true);
  EXPECT_EQ(trace.Puts("TextAlign").back(), 7);
}

TEST(TotalPageStamps, InTheColumnHeadTheShiftAddsUpFromPageToPage) {
  Scenario scenario = StampScenario(5, {{"FSite", 2}, {"FTop", 500}});
  scenario.Format({{"FAdjuctHeader", 200}});
  EXPECT_EQ(Tops(scenario.Run()), (std::vector<double>{500, 700, 900}));
}

TEST(TotalPageStamps, BehindTheRowsMiddlePagesStandAsHighAsTheFirst) {
  Scenario scenario = StampScenario(5, {{"FSite", 5}, {"FTop", 500}});
  scenario.Format({{"FFooterPerPage", 1}});
  EXPECT_EQ(Tops(scenario.Run()), (std::vector<double>{800, 800, 500})) << "one row on page 3";
}

TEST(TotalPageStamps, WithFilledPagesAllLaterPagesUseTheLastPlace) {
  Scenario scenario = StampScenario(5, {{"FSite", 5}, {"FTop", 500}});
  scenario.Format({{"FFooterPerPage", 1}, {"FIntegralPage", 1}, {"FAdjuctHeader", 50}});
  EXPECT_EQ(Tops(scenario.Run()), (std::vector<double>{800, 850, 850}));
}

TEST(TotalPageStamps, AFootThatStandsOnlyOnTheLastPageLeavesNoStampAtAll) {
  const Trace trace = StampScenario(3, {{"FSite", 5}, {"FTop", 500}}).Run();
  EXPECT_TRUE(trace.Boxes().empty()) << "the first-page slot is empty";
  EXPECT_EQ(trace.Calls("StartOverlay"), (Json{{1}, {2}})) << "the pages are reopened all the same";
}

TEST(TotalPageStamps, AHeadItemCarriesTheOffsetsOfThePageBefore) {
  Scenario scenario = StampScenario(4, {{"FSite", 1}, {"FTop", 0}});
  scenario.Format({{"FHeaderPerPage", 1}});
  EXPECT_EQ(Tops(scenario.Run()), (std::vector<double>{0, 300})) << "one row height, from row 2";
}

TEST(TotalPageStamps, ARowItemIsStampedWhereTheLastRowDrewIt) {
  Scenario scenario = StampScenario(4, {{"FSite", 3}, {"FTop", 500}});
  EXPECT_EQ(Tops(scenario.Run()), (std::vector<double>{800, 800}));
}

TEST(TotalPageStamps, TheLastOfTwoItemsInABandStays) {
  Scenario scenario = StampScenario(1, {{"FSite", 2}, {"FTop", 500}});
  scenario.FieldItem("FTOTALPAGENO", {{"FSite", 2}, {"FTop", 600}, {"FFontName", "黑体"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(Tops(trace), (std::vector<double>{600}));
  EXPECT_EQ(trace.Puts("FontName").back(), "黑体");
}

TEST(TotalPageStamps, AnItemWithoutAFontNameKeepsTheSlotsFont) {
  Scenario scenario = StampScenario(1, {{"FSite", 2}, {"FTop", 500}});
  scenario.FieldItem("ftotalpageno", {{"FSite", 2}, {"FTop", 600}, {"FFontName", nullptr}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(Tops(trace), (std::vector<double>{600}));
  EXPECT_EQ(trace.Puts("FontName").back(), "宋体");
}

TEST(TotalPageStamps, AnItemWithAnEmptyFontNameLeavesItsSlotOutOfUse) {
  for (const int site : {2, 5}) {
    const Trace trace = StampScenario(1, {{"FSite", site}, {"FTop", 500}, {"FFontName", ""}}).Run();
    EXPECT_TRUE(trace.Boxes().empty()) << "band " << site;
  }
}

TEST(TotalPageStamps, ThePageCountIsTheDocumentsInARunOfSeveralBills) {
  Scenario scenario = StampScenario(1, {{"FSite", 2}, {"FTop", 500}});
  scenario.Bills({1, 3, 1});
  EXPECT_EQ(scenario.Run().Texts(), (std::vector<std::string>{"4", "4", "4", "4"}));
}

TEST(TotalPageStamps, LaterPagesUseTheFontOfTheFirst) {
  // The head stands on the first page only, the foot on the last.
  Scenario scenario = StampScenario(
      3,
      {{"FSite", 1}, {"FTop", 50}, {"FFontName", "黑体"}, {"FFontSize", 10.5}, {"FFontBold", 1}});
  scenario.FieldItem("ftotalpageno", {{"FSite", 5}, {"FTop", 500}, {"FFontSize", 20}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(Tops(trace), (std::vector<double>{50, 500}));
  EXPECT_EQ(trace.Puts("FontName").back(), "黑体");
  EXPECT_EQ(trace.Puts("FontSize").back(), 10) << "a whole number of points";
  EXPECT_EQ(trace.Puts("FontBold").back(), true);
}

TEST(TotalPageStamps, ALockDuringStampingEndsTheDocumentAgain) {
  Scenario scenario = StampScenario(1, {{"FSite", 2}, {"FTop", 500}});
  scenario.Fault({{"on", "StartOverlay"}, {"number", 5}, {"description", "被锁"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("EndDoc").size(), 2U);
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

}  // namespace
}  // namespace td
