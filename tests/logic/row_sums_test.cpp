// What a row adds to the sums of its page and of the run.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

// Shows the named fields in the foot of each page.
Scenario SumScenario(const std::vector<std::string>& fields) {
  Scenario scenario;
  scenario.Format({{"FFooterPerPage", 1}});
  for (const std::string& field : fields) scenario.FieldItem(field, {{"FSite", 5}});
  return scenario;
}

using Texts = std::vector<std::string>;

TEST(RowSums, PageSumsStartAnewOnEachPageAndRunSumsGoOn) {
  Scenario scenario = SumScenario({"ftotalpage", "ftotalpage_1"});
  scenario.Format({{"FRowsPerPage", 2}});
  scenario.Data({"FInterID", "FAmount", "FMainQty"}, {{1, 1.5, 1}, {1, 2, 1}, {1, 4, 1}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"3.5", "3.5"}, {"4", "7.5"}}));
}

TEST(RowSums, AMarkerRowIsPrintedAndCountsOnlyInTheOverallSum) {
  Scenario scenario = SumScenario({"ftotalpage", "fsumtotalpage", "ftotalpage_mainqty"});
  scenario.FieldItem("FAmount");
  scenario.Data({"FInterID", "FAmount", "FMainQty"}, {{1, 10, 2}, {1, 100, -999.99}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"10", "100", "10", "110", "2"}));
}

TEST(RowSums, WithoutAMainQuantityColumnAllRowsAreMarkerRows) {
  Scenario scenario = SumScenario({"ftotalpage", "fsumtotalpage"});
  scenario.Data({"FInterID", "FAmount"}, {{1, 10}, {1, 5}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"0", "15"}));
}

TEST(RowSums, ANullMainQuantityIsNoMarker) {
  Scenario scenario = SumScenario({"ftotalpage", "ftotalpage_mainqty"});
  scenario.Data({"FInterID", "FAmount", "FMainQty"}, {{1, 10, nullptr}, {1, 5, 1}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"15", "1"}));
}

TEST(RowSums, AMainQuantityThatIsNoNumberMarksTheRow) {
  Scenario scenario = SumScenario({"ftotalpage"});
  scenario.Data({"FInterID", "FAmount", "FMainQty"}, {{1, 10, "合计"}, {1, 5, "-999.99"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"0"}));
}

TEST(RowSums, MissingAndNullColumnsSkipOnlyTheirOwnSum) {
  Scenario scenario = SumScenario({"ftotalpage_qty", "ftotalpage_credit", "ftotalpage_debit"});
  scenario.Data({"FInterID", "FMainQty", "FQty", "FCredit"},
                {{1, 1, 3, nullptr}, {1, 1, nullptr, 8}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"3", "8", "0"}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(RowSums, TheLeadingNumberOfATextCounts) {
  Scenario scenario = SumScenario({"ftotalpage"});
  scenario.Data({"FInterID", "FMainQty", "FAmount"},
                {{1, 1, " 12.5元"}, {1, 1, "abc"}, {1, 1, "-2e1x"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"-7.5"}));
}

TEST(RowSums, RetailAmountsAreTakenAsTheyStand) {
  Scenario scenario = SumScenario({"ftotalpage_retailamount", "ftotalpage_bzkamount"});
  scenario.Data({"FInterID", "FMainQty", "FRetailAmount", "FBeforeZkAmount"},
                {{1, 1, "12.5元", "3"}, {1, 1, 4, 5}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"4", "8"})) << "text that is no number adds nothing";
}

TEST(RowSums, TaxIsComputedFromPriceAndQuantityNotFromTheAmount) {
  Scenario scenario = SumScenario({"ftotalpagetax", "ftotalpagenotaxamount", "ftotalpagetax_1"});
  scenario.Data({"FInterID", "FMainQty", "FAmount", "FQty", "FPrice", "FTaxRate"},
                {{1, 1, 9999, 10, 11.3, 13}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"13", "100", "13"}));
}

TEST(RowSums, ARowWithoutAPriceAddsTheSplitOfTheRowBefore) {
  Scenario scenario = SumScenario({"ftotalpagetax", "ftotalpagenotaxamount"});
  scenario.Data({"FInterID", "FMainQty", "FQty", "FPrice", "FTaxRate"},
                {{1, 1, 10, 11.3, 13}, {1, 1, 10, nullptr, 13}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"26", "200"}));
}

TEST(RowSums, ATaxRateOfMinusAHundredDividesByZeroAndKeepsTheSplit) {
  Scenario scenario = SumScenario({"ftotalpagenotaxamount"});
  scenario.Data({"FInterID", "FMainQty", "FQty", "FPrice", "FTaxRate"},
                {{1, 1, 1, 5, 0}, {1, 1, 1, 7, -100}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"10"}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(RowSums, ARowAfterAPageBreakCountsTowardsTheNewPage) {
  Scenario scenario = SumScenario({"ftotalpage_qty"});
  scenario.Data({"FInterID", "FMainQty", "FQty"}, {{1, 1, 2}, {2, 1, 5}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"2"}, {"5"}}));
}

}  // namespace
}  // namespace td
