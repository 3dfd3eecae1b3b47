// What an explanation tells of rows, bills, sums and failures.
#include <gtest/gtest.h>

#include "explained_scenario.h"

namespace td {
namespace {

TEST(ExplainedRows, BillsHaveTheirRows) {
  Scenario scenario;
  scenario.Data({"FInterID", "FBillNo", "FMainQty"}, {{1, "A", 1}, {1, "A", -999.99}, {2, "B", 1}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(explanation.pages, 2);
  EXPECT_EQ(explanation.rows, 3);
  ASSERT_EQ(explanation.bills.size(), 2U);
  EXPECT_EQ(explanation.bills[0].number, "A");
  EXPECT_EQ(explanation.bills[0].rows, 2);
  EXPECT_EQ(explanation.bills[0].markerRows, 1);
  EXPECT_EQ(explanation.bills[1].number, "B");
  EXPECT_EQ(explanation.bills[1].rows, 1);
}

TEST(ExplainedRows, ABillWithoutANumberHasItsIdentity) {
  Scenario scenario;
  scenario.Bills({1, 1});
  const Explanation explanation = Explained(scenario);
  ASSERT_EQ(explanation.bills.size(), 2U);
  EXPECT_EQ(explanation.bills[1].number, "2");
}

TEST(ExplainedRows, ABillWhoseRowsArePassedOverHasNone) {
  Scenario scenario;
  scenario.BlankRows(3).Print();
  scenario.Bills({2, 2});
  const Explanation explanation = Explained(scenario);
  ASSERT_EQ(explanation.bills.size(), 2U);
  EXPECT_EQ(explanation.bills[0].rows, 0);
  EXPECT_EQ(explanation.bills[0].skippedRows, 2);
  EXPECT_EQ(explanation.bills[1].rows, 1);
  EXPECT_EQ(explanation.bills[1].skippedRows, 1);
}

TEST(ExplainedRows, APageWithOnlyItsHeadIsTold) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}}).Bills({2, 1});
  EXPECT_EQ(Explained(scenario).pagesWithoutRows, std::vector<int>{2})
      << "the first bill fills its page, and the second one begins another";
}

TEST(ExplainedRows, DataWithoutRowsMakeAPageWithoutRows) {
  Scenario scenario;
  scenario.Data({"FInterID"}, {});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(explanation.rows, 0);
  EXPECT_EQ(explanation.pagesWithoutRows, std::vector<int>{1});
}

TEST(ExplainedRows, MarkerRowsTellWhatMadeThem) {
  Scenario scenario;
  scenario.Data({"FInterID", "FMainQty"}, {{1, 1}, {1, -999.99}, {1, "合计"}, {1, -999.99}});
  const Explanation explanation = Explained(scenario);
  ASSERT_EQ(explanation.markerRows.size(), 2U);
  EXPECT_EQ(explanation.markerRows[0].cause, MarkerCause::kMarkerValue);
  EXPECT_EQ(explanation.markerRows[0].times, 2);
  EXPECT_EQ(explanation.markerRows[0].row, 2);
  EXPECT_EQ(explanation.markerRows[1].cause, MarkerCause::kNoNumber);
  EXPECT_EQ(explanation.markerRows[1].row, 3);
}

TEST(ExplainedRows, ATotalOfZeroTellsOfTheMissingColumn) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 5}});
  scenario.Data({"FInterID", "FAmount"}, {{1, 10}, {1, 20}});
  const Explanation explanation = Explained(scenario);
  ASSERT_EQ(explanation.markerRows.size(), 1U);
  EXPECT_EQ(explanation.markerRows[0].cause, MarkerCause::kMissingColumn);
  EXPECT_EQ(explanation.markerRows[0].times, 2);
  ASSERT_EQ(explanation.sums.size(), 1U);
  EXPECT_EQ(explanation.sums[0].variable, "ftotalpage");
  EXPECT_EQ(explanation.sums[0].rowsAdded, 0);
}

TEST(ExplainedRows, SumsTellWhatWentIntoThem) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 5}}).FieldItem("ftotalpagetax", {{"FSite", 5}});
  scenario.Data({"FInterID", "FMainQty", "FAmount"},
                {{1, 1, 10}, {1, 1, nullptr}, {1, 1, "2.5元"}});
  const Explanation explanation = Explained(scenario);
  ASSERT_EQ(explanation.sums.size(), 2U);
  EXPECT_EQ(explanation.sums[0].columns, "FAmount");
  EXPECT_EQ(explanation.sums[0].rowsAdded, 2);
  EXPECT_EQ(explanation.sums[0].rowsWithout, 1);
  EXPECT_EQ(explanation.sums[0].amount, 12.5);
  EXPECT_EQ(explanation.sums[0].missing, "");
  EXPECT_EQ(explanation.sums[1].missing, "FPrice, FQty, FTaxRate");
}

TEST(ExplainedRows, ASumOfThePrintIsTheSameSumOnEachPage) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 1}}).FieldItem("ftotalpage", {{"FSite", 4}});
  scenario.Data({"FInterID", "FMainQty", "FAmount"}, {{1, 1, 10}, {1, 1, 20}});
  const Explanation explanation = Explained(scenario);
  ASSERT_EQ(explanation.sums.size(), 1U);
  EXPECT_EQ(explanation.sums[0].amount, 30);
}

TEST(ExplainedRows, FailuresOutsideTheItemsAreTold) {
  Scenario scenario;
  scenario.MachinePaper({{"FDevice", "P9"}}).Print({{"TDBillName", "销售单"}});
  scenario.Format({{"FRowHeight", nullptr}});
  const Explanation explanation = Explained(scenario);
  ASSERT_EQ(explanation.failures.size(), 2U);
  EXPECT_EQ(explanation.failures[0].number, 380);
  EXPECT_FALSE(explanation.failures[0].isShown);
  EXPECT_EQ(explanation.failures[1].number, 94);
  EXPECT_EQ(explanation.failures[1].column, "FRowHeight");
  EXPECT_EQ(explanation.failures[1].place.format, "销售单");
}

TEST(ExplainedRows, ShownFailuresHaveTheirPlace) {
  Scenario scenario;
  scenario.FieldItem("FName");
  scenario.Fault({{"on", "TextBox"}, {"times", 2}, {"number", 57}, {"description", "卡纸"}});
  scenario.Bills({3});
  const Explanation explanation = Explained(scenario);
  ASSERT_EQ(explanation.failures.size(), 1U);
  const ExplainedFailure& failure = explanation.failures[0];
  EXPECT_TRUE(failure.isShown);
  EXPECT_EQ(failure.times, 2);
  EXPECT_EQ(failure.place.band, 3);
  EXPECT_EQ(failure.place.item, "FName");
  EXPECT_EQ(failure.place.row, 1);
}

TEST(ExplainedRows, LocksAreCounted) {
  Scenario scenario;
  scenario.Fault({{"on", "query"},
                  {"times", 3},
                  {"number", 5},
                  {"description", "被锁定"},
                  {"match", "FSite=1"}});
  EXPECT_EQ(Explained(scenario).lockWaits, 3);
}

TEST(ExplainedRows, WithoutAFormatThereIsARunWithoutOne) {
  Scenario scenario;
  scenario.Print({{"TDBillName", "没有"}});
  const Explanation explanation = Explained(scenario);
  EXPECT_TRUE(explanation.isRun);
  EXPECT_EQ(explanation.format, "");
  EXPECT_TRUE(explanation.items.empty());
}

TEST(ExplainedRows, WithoutARunThereIsNone) {
  Scenario scenario;
  scenario.OpenTDSet();
  EXPECT_FALSE(Explained(scenario).isRun);
}

}  // namespace
}  // namespace td
