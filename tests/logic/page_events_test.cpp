// What happens at the edges of a page.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

// One word a band, so that the order of the bands is read off a page.
Scenario BandScenario() {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "头"}, {"FTop", 0}});
  scenario.Item({{"FSite", 2}, {"FObjectCaption", "列"}, {"FTop", 700}});
  scenario.Item({{"FSite", 3}, {"FObjectCaption", "行"}});
  scenario.Item({{"FSite", 4}, {"FObjectCaption", "计"}, {"FTop", 1300}});
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}, {"FTop", 1600}});
  scenario.Format({{"FRowsPerPage", 2}});
  return scenario;
}

// Calls, events and bands in their order.
std::vector<std::string> BandOrder(const Trace& trace) {
  return trace.Outline(
      {"StartDoc", "NewPage", "EndDoc", "OnNewPage", "OnEndPage", "OnEndDoc", "TextBox"});
}

TEST(PageEvents, BandsOfAFormatThatPrintsHeadAndFootOnce) {
  Scenario scenario = BandScenario();
  scenario.Bills({3});
  EXPECT_EQ(BandOrder(scenario.Run()),
            (std::vector<std::string>{
                "StartDoc", "OnNewPage", "TextBox 头", "TextBox 列", "TextBox 行", "TextBox 行",
                "TextBox 计", "NewPage", "OnEndPage", "OnNewPage", "TextBox 列", "TextBox 行",
                "TextBox 计", "TextBox 脚", "EndDoc", "OnEndPage", "OnEndDoc"}));
}

TEST(PageEvents, BandsOfAFormatThatPrintsHeadAndFootOnEveryPage) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FHeaderPerPage", 1}, {"FFooterPerPage", 1}}).Bills({3});
  EXPECT_EQ(
      BandOrder(scenario.Run()),
      (std::vector<std::string>{"StartDoc", "OnNewPage", "TextBox 头", "TextBox 列", "TextBox 行",
                                "TextBox 行", "TextBox 计", "NewPage", "OnEndPage", "TextBox 脚",
                                "OnNewPage", "TextBox 头", "TextBox 列", "TextBox 行", "TextBox 计",
                                "EndDoc", "OnEndPage", "TextBox 脚", "OnEndDoc"}));
}

TEST(PageEvents, TheHeadOfAOnceFormatStandsOnTheFirstPageOfEachBill) {
  Scenario scenario = BandScenario();
  scenario.Bills({3, 3});
  const Pages pages = scenario.Run().TextsByPage();
  ASSERT_EQ(pages.size(), 4U);
  EXPECT_EQ(pages[0].front(), "头");
  EXPECT_EQ(pages[1].front(), "列");
  EXPECT_EQ(pages[2].front(), "头");
  EXPECT_EQ(pages[3].front(), "列");
}

TEST(PageEvents, AShiftUpwardsMakesRoomForMoreRowsFromTheFirstBreakOn) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FAdjuctHeader", -1000}, {"FRowsPerPage", 4}}).Bills({30});
  const Pages pages = scenario.Run().TextsByPage();
  const auto rows = [&](std::size_t page) {
    return std::count(pages[page].begin(), pages[page].end(), "行");
  };
  ASSERT_EQ(pages.size(), 5U);
  EXPECT_EQ(rows(0), 4);
  EXPECT_EQ(rows(1), 7) << "1000 / 300 gives 3 more";
  EXPECT_EQ(rows(2), 7) << "grown once in a run";
  EXPECT_EQ(rows(4), 5);
}

TEST(PageEvents, AShiftDownwardsAddsRowsToo) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FAdjuctHeader", 650}}).Bills({6});
  EXPECT_EQ(scenario.Run().TextsByPage()[1].size(), 1U + 4U + 1U + 1U);
}

TEST(PageEvents, AShiftOfZeroAddsNoRowsAndMovesNothing) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FAdjuctHeader", 0}}).Bills({5});
  std::vector<std::vector<double>> tops(3);
  for (const Drawn& box : scenario.Run().Boxes()) {
    if (box.text == "列" || box.text == "行") {
      tops.at(static_cast<std::size_t>(box.page - 1)).push_back(box.top);
    }
  }
  EXPECT_EQ(tops,
            (std::vector<std::vector<double>>{{700, 1000, 1300}, {700, 1000, 1300}, {700, 1000}}));
}

TEST(PageEvents, LaterPagesAreShiftedTheirHeadIsNot) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FAdjuctHeader", -100}, {"FHeaderPerPage", 1}}).Bills({3});
  const auto boxes = scenario.Run().Boxes();
  const auto top = [&](int page, const std::string& text) {
    const auto found = std::find_if(boxes.begin(), boxes.end(), [&](const Drawn& box) {
      return box.page == page && box.text == text;
    });
    return found == boxes.end() ? -1 : found->top;
  };
  EXPECT_EQ(top(1, "列"), 700);
  EXPECT_EQ(top(2, "列"), 600);
  EXPECT_EQ(top(1, "行"), 1000);
  EXPECT_EQ(top(2, "行"), 900);
  EXPECT_EQ(top(2, "头"), 0);
}

TEST(PageEvents, TheFirstPageOfASecondBillKeepsTheShift) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FAdjuctHeader", -100}}).Bills({1, 1});
  const auto boxes = scenario.Run().Boxes();
  const auto row = std::find_if(boxes.begin(), boxes.end(),
                                [](const Drawn& box) { return box.page == 2 && box.text == "行"; });
  ASSERT_NE(row, boxes.end());
  EXPECT_EQ(row->top, 900);
}

TEST(PageEvents, ARowHeightOfZeroEndsTheRunAtTheFirstBreak) {
  Scenario scenario = BandScenario();
  scenario.Format({{"FRowHeight", 0}}).Bills({3});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_EQ(trace.Calls("NewPage").size(), 1U);
  EXPECT_EQ(trace.After().at("PrintOk"), false);
}

TEST(PageEvents, AnErrorInsideABandIsTheBandsOwn) {
  Scenario scenario = BandScenario();
  scenario.Fault(
      {{"on", "TextBox"}, {"nth", 2}, {"number", 5}, {"description", "坏了"}, {"match", "列"}});
  scenario.Bills({3});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (std::vector<std::string>{"坏了"}));
  EXPECT_EQ(trace.After().at("PrintOk"), true) << "the run goes on";
}

}  // namespace
}  // namespace td
