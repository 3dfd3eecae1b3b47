// The page number of the bill, and the place that is kept for the number of all pages.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// A page number on each of the pages of two bills: two pages, then one.
Scenario PageNumberScenario(Scenario::Fields item) {
  Scenario scenario;
  scenario.FieldItem("FPAGEno", item);
  scenario.Format({{"FRowsPerPage", 2}, {"FFooterPerPage", 1}, {"FHeaderPerPage", 1}});
  scenario.Bills({3, 1});
  return scenario;
}

TEST(PageNumber, CountsThePagesOfTheBill) {
  Scenario scenario = PageNumberScenario({{"FSite", 2}, {"FObjectCaption", "第"}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"第1"}, {"第2"}, {"第1"}}));
}

TEST(PageNumber, InTheFootOfEachPageIsZeroWhereTheNextBillIsDue) {
  Scenario scenario = PageNumberScenario({{"FSite", 5}, {"FObjectCaption", "第"}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"第1"}, {"第0"}, {"第1"}}));
}

TEST(PageNumber, InTheHeadCountsThePagesOfTheDocument) {
  Scenario scenario = PageNumberScenario({{"FSite", 1}, {"FObjectCaption", "第"}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"第1"}, {"第2"}, {"第3"}}));
}

TEST(PageNumber, IgnoresThePicture) {
  for (const Json& picture : {Json("000"), Json(nullptr)}) {
    Scenario scenario;
    scenario.FieldItem("fpageno", {{"FSite", 5}, {"FFormatString", picture}});
    EXPECT_EQ(scenario.Run().Texts(), (Texts{"1"}));
  }
}

TEST(PageNumber, AFreeStandingOneIsWrittenAtTheItemsPointWithoutABox) {
  Scenario scenario;
  scenario.FieldItem("fpageno", {{"FSite", 4},
                                 {"FAutoSize", 1},
                                 {"FObjectCaption", "第"},
                                 {"FWidth", nullptr},
                                 {"FHeight", nullptr},
                                 {"FWordWrap", nullptr}});
  scenario.Format({{"FAdjuctLeft", 7}, {"FAdjuctTop", 40}}).Bills({2});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("PutParagraph"), (Json{{"第1"}}));
  EXPECT_EQ(trace.Puts("CurrentX"), (Json{107}));
  EXPECT_EQ(trace.Puts("CurrentY"), (Json{1340})) << "on the second row";
  EXPECT_TRUE(trace.Boxes().empty());
}

TEST(PageNumber, ANullSizeSwitchMeansABox) {
  Scenario scenario;
  scenario.FieldItem("fpageno", {{"FSite", 5}, {"FAutoSize", nullptr}, {"FWordWrap", 1}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("TextBox"), (Json{{"1", 100, 1000, 500, 200, 1}}));
  EXPECT_TRUE(trace.Calls("PutParagraph").empty());
}

TEST(PageNumber, WithoutTheColumnOfTheSizeSwitchItStandsFree) {
  Scenario scenario;
  scenario.FieldItem("fpageno", {{"FSite", 5}}).DropColumn("TDBillDetail", "FAutoSize");
  EXPECT_EQ(scenario.Run().Calls("PutParagraph"), (Json{{"1"}}));
}

TEST(PageNumber, OtherFieldsHaveABoxWhateverTheSizeSwitchSays) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 5}, {"FAutoSize", 1}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"0"}));
  EXPECT_TRUE(trace.Calls("PutParagraph").empty());
}

// The last stamp's own writes: those behind the first StartOverlay.
std::vector<Json> LinesOfStamps(const Trace& trace) {
  std::vector<Json> lines;
  bool isStamping = false;
  for (const Json& line : trace.Lines()) {
    isStamping = isStamping || (line["e"] == "call" && line["f"] == "StartOverlay");
    if (isStamping) lines.push_back(line);
  }
  return lines;
}

TEST(TotalPageNumber, DrawsNothingBeforeTheDocumentEnds) {
  Scenario scenario;
  scenario.FieldItem("FTotalPAGENO", {{"FSite", 2}, {"FAutoSize", 1}});
  const std::vector<std::string> outline =
      scenario.Run().Outline({"OnEndDoc", "TextBox", "PutParagraph"});
  EXPECT_EQ(outline, (Texts{"OnEndDoc", "TextBox 1"}));
}

TEST(TotalPageNumber, KeepsPlaceSizeFontAndBoldnessOnly) {
  Scenario scenario;
  scenario.FieldItem("ftotalpageno", {{"FSite", 5},
                                      {"FObjectCaption", "共"},
                                      {"FFontName", "黑体"},
                                      {"FFontSize", 12},
                                      {"FFontBold", 1},
                                      {"FFontItalic", 1},
                                      {"FAlignMent", 0},
                                      {"FFormatString", "000"}});
  scenario.Format({{"FAdjuctLeft", 7}, {"FAdjuctTop", 40}}).Bills({2});
  const std::vector<Json> expected = {
      {{"e", "call"}, {"f", "StartOverlay"}, {"a", {1}}},
      {{"e", "put"}, {"p", "FontName"}, {"v", "黑体"}},
      {{"e", "put"}, {"p", "FontSize"}, {"v", 12}},
      {{"e", "put"}, {"p", "FontBold"}, {"v", true}},
      {{"e", "call"}, {"f", "TextBox"}, {"a", {"1", 107, 1340, 500, 200}}},
      {{"e", "call"}, {"f", "EndOverlay"}, {"a", Json::array()}}};
  std::vector<Json> lines = LinesOfStamps(scenario.Run());
  lines.resize(expected.size());
  EXPECT_EQ(lines, expected);
}

TEST(TotalPageNumber, ANullInOneColumnKeepsWhatTheItemBeforeLeftThere) {
  Scenario scenario;
  scenario.FieldItem("ftotalpageno", {{"FSite", 2}, {"FFontBold", 1}});
  scenario.FieldItem("FTotalPageNo", {{"FSite", 2},
                                      {"FLeft", 300},
                                      {"FWidth", nullptr},
                                      {"FHeight", 50},
                                      {"FFontSize", nullptr},
                                      {"FFontBold", nullptr}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Boxes(), (std::vector<Drawn>{{1, "1", 300, 1000, 500, 50}}));
  EXPECT_EQ(trace.Puts("FontSize").back(), 9);
  EXPECT_EQ(trace.Puts("FontBold").back(), true);
}

TEST(TotalPageNumber, ARowItemOfALaterPageKeepsTheLastRowsPlace) {
  Scenario scenario;
  scenario.FieldItem("ftotalpageno", {{"FSite", 3}, {"FTop", 500}});
  scenario.Format({{"FRowsPerPage", 2}, {"FAdjuctHeader", 100}, {"FIntegralPage", 1}});
  scenario.Bills({4});
  std::vector<double> tops;
  for (const Drawn& box : scenario.Run().Boxes()) tops.push_back(box.top);
  EXPECT_EQ(tops, (std::vector<double>{800, 900})) << "the shift of later pages included";
}

}  // namespace
}  // namespace td
