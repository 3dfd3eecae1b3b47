// Runs that begin part-way down a form that was printed on before.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

Scenario BlankRowScenario(int blankRows, int rows) {
  Scenario scenario;
  scenario.Item({{"FSite", 2}, {"FObjectCaption", "列"}});
  scenario.FieldItem("FName");
  scenario.Item({{"FSite", 4}, {"FObjectCaption", "计"}});
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}});
  scenario.Bills({rows}).BlankRows(blankRows).Print();
  return scenario;
}

TEST(BlankRows, TakeUpTheRowsAndTheirPlaces) {
  const Trace trace = BlankRowScenario(3, 5).Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"行4", "行5"}})) << "no column head, no foot, no sum";
  EXPECT_EQ(trace.BoxOf("行4").top, 1000 + 3 * 300);
  EXPECT_EQ(trace.BoxOf("行5").top, 1000 + 4 * 300);
}

TEST(BlankRows, AreSpentByTheRun) {
  Scenario scenario = BlankRowScenario(3, 5);
  scenario.Print();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.After(1).at("PrintBlankRows"), 0);
  EXPECT_EQ(trace.Texts(), (std::vector<std::string>{"行4", "行5", "列", "行1", "行2", "行3", "行4",
                                                     "行5", "计", "脚"}));
}

TEST(BlankRows, LeftOverStayForTheNextRun) {
  const Trace trace = BlankRowScenario(5, 2).Run();
  EXPECT_EQ(trace.After().at("PrintBlankRows"), 3);
  EXPECT_EQ(trace.TextsByPage(), (Pages{{}}));
}

TEST(BlankRows, ThatFillWholePagesArePassedOverWithoutAPage) {
  const Trace trace = BlankRowScenario(25, 30).Run();
  const Pages pages = trace.TextsByPage();
  EXPECT_EQ(pages, (Pages{{"行26", "行27", "行28", "行29", "行30", "计"}}));
  EXPECT_EQ(trace.BoxOf("行26").top, 1000 + 5 * 300);
}

TEST(BlankRows, OfMorePagesThanThereAreRowsLeaveOneEmptyPage) {
  const Trace trace = BlankRowScenario(25, 15).Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{}}));
  EXPECT_EQ(trace.After().at("PrintBlankRows"), 5) << "two whole pages, the missing rows included";
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

TEST(BlankRows, OfExactlyOnePagePutAllRowsOverEachOtherOnOnePage) {
  const Trace trace = BlankRowScenario(10, 22).Run();
  EXPECT_EQ(trace.TextsByPage().size(), 1U);
  EXPECT_EQ(trace.BoxOf("行11").top, 1000) << "the top again";
  EXPECT_EQ(trace.BoxOf("行20").top, 1000 + 9 * 300);
  EXPECT_EQ(trace.BoxOf("行21").top, 1000) << "over row 11";
}

TEST(BlankRows, OfTwoPagesSkipBothAndGoOnWithTheBlankHead) {
  Scenario scenario = BlankRowScenario(20, 21);
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "头"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"", "头", "列", "行21"}}))
      << "the blank head by the event, the ordinary one by the run's start; no foot";
}

TEST(BlankRows, HaveNoFootOnAnyPage) {
  Scenario scenario = BlankRowScenario(1, 12);
  scenario.Format({{"FFooterPerPage", 1}, {"FRowsPerPage", 5}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"行2", "行3", "行4", "行5", "计"},
                                        {"列", "行6", "行7", "行8", "行9", "行10", "计"},
                                        {"列", "行11", "行12"}}));
}

TEST(BlankRows, WithZeroRowsAPageEndTheRunWithTheDivisionsError) {
  Scenario scenario = BlankRowScenario(3, 5);
  scenario.Format({{"FRowsPerPage", 0}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_TRUE(trace.Calls("StartDoc").empty());
}

TEST(BlankRows, CountInTheRowNumbers) {
  Scenario scenario;
  scenario.FieldItem("FOrderId").Bills({5}).BlankRows(3).Print();
  EXPECT_EQ(scenario.Run().Texts(), (std::vector<std::string>{"4", "5"}));
}

}  // namespace
}  // namespace td
