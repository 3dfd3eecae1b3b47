// The bills of real runs on the recording platform.
#include "run_witnesses/bill_list.h"

#include <gtest/gtest.h>

#include "recording/replay.h"
#include "scenario.h"

namespace td {
namespace {

using Bills = std::vector<std::string>;

BillList ListOf(const Scenario& scenario) {
  BillList list;
  (void)recording::Replay(scenario.Document(), &list);
  return list;
}

TEST(BillList, KnowsTheRequestAndTheFormatThatWasFound) {
  Scenario scenario;
  scenario.Print();
  EXPECT_FALSE(BillList().HasRun());
  const BillList list = ListOf(scenario);
  EXPECT_TRUE(list.HasRun());
  EXPECT_NE(list.Connection(), "");
  EXPECT_EQ(list.BillType(), 21);
  EXPECT_EQ(list.Format(), "销售单") << "none was asked for by name";
}

TEST(BillList, KeepsTheNameOfAFormatThatIsNotFound) {
  Scenario scenario;
  scenario.Print({{"TDBillName", "没有"}});
  EXPECT_EQ(ListOf(scenario).Format(), "没有");
}

TEST(BillList, NamesEachBillOnceByItsNumberElseByItsKey) {
  Scenario scenario;
  scenario.Data({"FInterID", "FBillNo"},
                {{1, "XD-1"}, {1, "XD-1"}, {2, nullptr}, {3, ""}, {4, "XD-4"}, {1, "XD-1"}});
  EXPECT_EQ(ListOf(scenario).Bills(), (Bills{"XD-1", "2", "3", "XD-4"}));
  Scenario withoutNumbers;
  withoutNumbers.Data({"FInterID"}, {{7}, {0}, {8}});
  EXPECT_EQ(ListOf(withoutNumbers).Bills(), (Bills{"7", "8"})) << "0 is no bill";
}

TEST(BillList, RowsThatAreLeftBlankAreNotPrinted) {
  Scenario scenario;
  scenario.Data({"FInterID"}, {{1}, {2}, {3}});
  scenario.BlankRows(1).Print();
  EXPECT_EQ(ListOf(scenario).Bills(), (Bills{"2", "3"}));
}

TEST(BillList, BeginsAnewWithEachRun) {
  Scenario scenario;
  scenario.Data({"FInterID"}, {{1}, {2}});
  scenario.Print().Print();
  EXPECT_EQ(ListOf(scenario).Bills(), (Bills{"1", "2"}));
}

TEST(BillList, AreasHaveBillsToo) {
  Scenario scenario;
  scenario.Data({"FInterID", "FStockArea"}, {{5, "A"}, {6, "A"}, {5, "B"}});
  scenario.PrintByArea();
  EXPECT_EQ(ListOf(scenario).Bills(), (Bills{"5", "6"}));
}

}  // namespace
}  // namespace td
