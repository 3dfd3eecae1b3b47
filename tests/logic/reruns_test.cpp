// Several runs on one window: what goes on from where it stood.
#include <gtest/gtest.h>

#include "settings_steps.h"

namespace td {
namespace {

const Json kConfirmPageSetup = {{"key", "pageset"}, {"confirm", true}};

using Texts = std::vector<std::string>;

TEST(ReRuns, OverallAndRunningSumsGoOnAfterPageSetupAndAfterFineTuning) {
  for (const Json& way : {kConfirmPageSetup, InDialog({kOk})}) {
    Scenario scenario;
    scenario.FieldItem("FSumTotalPage", {{"FSite", 5}}).FieldItem("ftotalpage_1", {{"FSite", 5}});
    scenario.FieldItem("ftotalpage", {{"FSite", 5}});
    scenario.Data({"FInterID", "FAmount", "FMainQty"}, {{1, 10, 1}});
    scenario.Preview({way});
    EXPECT_EQ(scenario.Run().Texts(), (Texts{"10", "10", "10", "20", "20", "10"})) << way;
  }
}

TEST(ReRuns, AllSixRunningSumsGoOn) {
  const std::vector<std::string> fields = {
      "ftotalpage_1",         "ftotalpagetax_1",       "ftotalpagenotaxamount_1",
      "ftotalpage_mainqty_1", "ftotalpageselffreight", "ftotalpagefreight_amount"};
  Scenario scenario;
  for (const std::string& field : fields) scenario.FieldItem(field, {{"FSite", 5}});
  scenario.Data({"FInterID", "FAmount", "FMainQty", "FQty", "FPrice", "FTaxRate", "FFreight",
                 "FFreight_Amount"},
                {{1, 10, 2, 10, 11.3, 13, 3, 4}});
  scenario.Preview({kConfirmPageSetup});
  EXPECT_EQ(scenario.Run().Texts(),
            (Texts{"10", "13", "100", "2", "3", "4", "20", "26", "200", "4", "6", "8"}));
}

TEST(ReRuns, ThePageOfTheBillGoesOnCounting) {
  Scenario scenario;
  scenario.FieldItem("FPageNo", {{"FSite", 5}, {"FObjectCaption", "FPageNo"}});
  scenario.Format({{"FFooterPerPage", 1}, {"FRowsPerPage", 2}}).Bills({3});
  scenario.Preview({kConfirmPageSetup});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"1", "2", "3", "4"}));
}

TEST(ReRuns, TheRowNumberStartsAnew) {
  Scenario scenario;
  scenario.FieldItem("FOrderId").Bills({2}).Preview({kConfirmPageSetup});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"1", "2", "1", "2"}));
}

TEST(ReRuns, ASingleBillPrintsAgain) {
  Scenario scenario;
  scenario.FieldItem("FName").Bills({2}).Preview({kConfirmPageSetup});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"行1", "行2", "行1", "行2"}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(ReRuns, SeveralBillsEndBecauseTheCloneRunsOutOfRows) {
  Scenario scenario;
  scenario.FieldItem("FName").Bills({2, 1}).Preview({kConfirmPageSetup});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"行1", "行2", "行3"}));
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_EQ(trace.Puts("MousePointer"), Json::array({11, 1, 11})) << "left waiting";
}

TEST(ReRuns, TheFirstPageKeepsTheShiftOfLaterPages) {
  Scenario scenario;
  scenario.FieldItem("FName");
  scenario.Format({{"FAdjuctHeader", -100}, {"FRowsPerPage", 1}, {"FRowHeight", 300}}).Bills({2});
  scenario.Preview({kConfirmPageSetup});
  const auto boxes = scenario.Run().Boxes();
  ASSERT_EQ(boxes.size(), 4U);
  EXPECT_EQ(boxes[0].top, 1000);
  EXPECT_EQ(boxes[1].top, 900);
  EXPECT_EQ(boxes[2].top, 900) << "first page of the second run";
}

TEST(ReRuns, RowsPerPageStartAgainFromTheFormat) {
  Scenario scenario;
  scenario.Format({{"FAdjuctHeader", -600}, {"FRowsPerPage", 1}}).Bills({4});
  scenario.FieldItem("FName").Preview({kConfirmPageSetup});
  std::vector<int> pages;
  for (const Drawn& box : scenario.Run().Boxes()) pages.push_back(box.page);
  EXPECT_EQ(pages, (std::vector<int>{1, 2, 2, 2, 1, 2, 2, 2}));
}

TEST(ReRuns, StampsOfTheRunBeforeAreWrittenAgain) {
  Scenario scenario;
  scenario.FieldItem("ftotalpageno", {{"FSite", 2}, {"FTop", 500}});
  scenario.Fault({{"on", "query"},
                  {"nth", 2},
                  {"number", 5},
                  {"description", "坏了"},
                  {"match", "t2.FSite=2"}});
  scenario.Bills({1}).Preview({kConfirmPageSetup});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"1", "1"})) << "the second run met no such item";
}

TEST(ReRuns, UseTheMachinesPaperOnceTheNameIsKnown) {
  Scenario scenario;
  scenario.Preview({Json{{"key", "pageset"}, {"confirm", true}, {"put", {{"Device", "P2"}}}}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("Device"), Json::array({"P2"})) << "only the second run finds the row";
}

}  // namespace
}  // namespace td
