// What a witness is told of a run, and that the run is the same without one.
#include <gtest/gtest.h>

#include <algorithm>

#include "recording/replay.h"
#include "scenario.h"
#include "told_witness.h"

namespace td {
namespace {

using Lines = std::vector<std::string>;

ToldWitness WitnessOf(const Scenario& scenario) {
  ToldWitness witness;
  (void)recording::Replay(scenario.Document(), &witness);
  return witness;
}

// An item of the head that shows a column.
Scenario& HeadField(Scenario& scenario, const std::string& column, bool isFree = false) {
  return scenario.FieldItem(column, {{"FSite", 1}, {"FAutoSize", isFree ? 1 : 0}});
}

bool HasMet(const ToldWitness& witness, Circumstance circumstance) {
  return std::ranges::find(witness.met, circumstance) != witness.met.end();
}

TEST(RunWitness, IsToldOfARunFromItsFormatToItsEnd) {
  Scenario scenario;
  scenario.FieldItem("FName");
  EXPECT_EQ(WitnessOf(scenario).Lines(), (Lines{"RunBegins frmTdPrint 21 ''",
                                                "FormatChosen 销售单",
                                                "PageBegins",
                                                "BandBegins 1",
                                                "BandEnds",
                                                "BandBegins 2",
                                                "BandEnds",
                                                "RowBegins 1 of 1",
                                                "Adds FAmount: none",
                                                "RowIsMarker",
                                                "BandBegins 3",
                                                "ItemBegins FName",
                                                "Drawn text '甲'",
                                                "ItemEnds",
                                                "BandEnds",
                                                "BandBegins 4",
                                                "BandEnds",
                                                "BandBegins 5",
                                                "BandEnds",
                                                "PagesEnd",
                                                "RunEnds"}));
}

TEST(RunWitness, ChangesNothingOfARun) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}, {"FIntegralPage", 1}});
  scenario.FieldItem("FQty").FieldItem("FGone").FieldItem("ftotalpage", {{"FSite", 5}});
  scenario.FieldItem("ftotalpageno", {{"FSite", 2}}).Line({});
  scenario.Data({"FInterID", "FQty", "FMainQty", "FAmount"},
                {{1, 1, 1, 10}, {1, nullptr, 1, 20}, {2, 3, -999.99, 30}});
  ToldWitness witness;
  const auto watched = recording::Replay(scenario.Document(), &witness);
  EXPECT_EQ(Json(watched.trace), Json(recording::Replay(scenario.Document()).trace));
}

TEST(RunWitness, IsToldWhichColumnAnItemLacks) {
  Scenario scenario;
  scenario.FieldItem("FGone");
  const ToldWitness witness = WitnessOf(scenario);
  EXPECT_EQ(witness.Lines({"ItemBegins", "Forgives", "Drawn", "ItemEnds"}),
            (Lines{"ItemBegins FGone", "Forgives 3265 in test at FGone",
                   "Forgives 3265 in step at FGone", "ItemEnds"}));
}

TEST(RunWitness, IsToldOfAStepThatANullSkips) {
  Scenario scenario;
  scenario.FieldItem("fsumamount_dx");
  scenario.Data({"FInterID", "FSumAmount"}, {{1, nullptr}});
  EXPECT_EQ(WitnessOf(scenario).Lines({"Forgives", "Drawn"}),
            Lines{"Forgives 94 in step at FSumAmount"});
}

TEST(RunWitness, IsToldWhyAHeadItemStaysEmpty) {
  Scenario scenario;
  HeadField(scenario, "FNote");
  scenario.Data({"FInterID", "FNote"}, {{1, nullptr}});
  const ToldWitness witness = WitnessOf(scenario);
  EXPECT_TRUE(witness.Lines({"Drawn"}).empty());
  EXPECT_TRUE(HasMet(witness, Circumstance::kNullInBox));
}

TEST(RunWitness, IsToldOfTheTextThatIsDrawnInstead) {
  Scenario scenario;
  scenario.FieldItem("fcomplexqty");
  scenario.Data({"FInterID", "FMainQty"}, {{1, 0}});
  const ToldWitness witness = WitnessOf(scenario);
  EXPECT_EQ(witness.Lines({"Drawn"}), Lines{"Drawn text ''"});
  EXPECT_TRUE(HasMet(witness, Circumstance::kQuantityNotComposed));
}

TEST(RunWitness, IsToldOfALabelWithoutAVariableAndOfOneThatRepeatsItsName) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "数量"}, {"FObjectFieldName", "数量"}});
  const ToldWitness witness = WitnessOf(scenario);
  EXPECT_TRUE(HasMet(witness, Circumstance::kNoVariable));
  EXPECT_TRUE(HasMet(witness, Circumstance::kRepeatedCaption));
  EXPECT_EQ(witness.Lines({"Drawn"}), Lines{"Drawn text ''"});
}

TEST(RunWitness, IsToldOfAKindThatDrawsNothing) {
  Scenario scenario;
  scenario.Item({{"FTypeID", 7}});
  EXPECT_TRUE(HasMet(WitnessOf(scenario), Circumstance::kUnknownKind));
}

TEST(RunWitness, IsToldOfAQuantityOfOneDirection) {
  Scenario scenario;
  scenario.FieldItem("fcomplexqty_in");
  scenario.Data({"FInterID", "FMainQty_In"}, {{1, nullptr}});
  EXPECT_TRUE(HasMet(WitnessOf(scenario), Circumstance::kNullDirection));
}

TEST(RunWitness, IsToldOfGoodsWithoutAPicture) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", "<商品图片>"}});
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}});
  EXPECT_TRUE(HasMet(WitnessOf(scenario), Circumstance::kNoPicture));
}

TEST(RunWitness, IsToldOfTheHeadThatIsOnTheSheetAlready) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}}).BlankRows(1).Print();
  scenario.Bills({3});
  const ToldWitness witness = WitnessOf(scenario);
  EXPECT_TRUE(HasMet(witness, Circumstance::kHeadIsOnSheet));
  EXPECT_EQ(witness.Lines({"RowIsSkipped", "RowBegins"}),
            (Lines{"RowIsSkipped", "RowBegins 2 of 1", "RowBegins 3 of 1"}));
}

TEST(RunWitness, IsToldOfASumThatTheWindowDoesNotKeep) {
  Scenario scenario;
  scenario.FieldItem("ftotalpagetax_1").PrintByArea();
  EXPECT_TRUE(HasMet(WitnessOf(scenario), Circumstance::kSumIsNotKept));
}

TEST(RunWitness, IsToldWhatARowAddsAndWhichSumIsShown) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 5}});
  scenario.Data({"FInterID", "FMainQty", "FAmount"}, {{1, 1, "12.5元"}, {1, 2, nullptr}});
  const Lines added = WitnessOf(scenario).Lines({"Adds"});
  EXPECT_EQ(std::ranges::count(added, "Adds FAmount: 12.5"), 3) << "overall, page and run";
  EXPECT_EQ(std::ranges::count(added, "Adds FAmount: none"), 3);
  EXPECT_EQ(std::ranges::count(added, "Adds FPrice,FQty,FTaxRate: 0"), 8);
  EXPECT_EQ(WitnessOf(scenario).Lines({"ShowsSum"}), Lines{"ShowsSum 12.5"});
}

TEST(RunWitness, IsToldOfMarkerRows) {
  Scenario scenario;
  scenario.Data({"FInterID", "FMainQty"}, {{1, 1}, {1, -999.99}, {1, 1}});
  EXPECT_EQ(WitnessOf(scenario).Lines({"RowBegins", "RowIsMarker"}),
            (Lines{"RowBegins 1 of 1", "RowBegins 2 of 1", "RowIsMarker", "RowBegins 3 of 1"}));
}

TEST(RunWitness, IsToldWhereANewBillBegins) {
  Scenario scenario;
  scenario.Bills({1, 1});
  EXPECT_EQ(
      WitnessOf(scenario).Lines({"RowBegins", "GroupBreaks", "PageBegins", "BandBegins"}),
      (Lines{"PageBegins", "BandBegins 1", "BandBegins 2", "RowBegins 1 of 1", "BandBegins 3",
             "BandBegins 4", "BandBegins 5", "GroupBreaks", "PageBegins", "BandBegins 1",
             "BandBegins 2", "RowBegins 2 of 2", "BandBegins 3", "BandBegins 4", "BandBegins 5"}));
}

TEST(RunWitness, IsToldWhereANewStockAreaBegins) {
  Scenario scenario;
  scenario.PrintByArea();
  scenario.Data({"FInterID", "FStockArea"}, {{1, "A"}, {1, "B"}});
  EXPECT_EQ(WitnessOf(scenario).Lines({"RowBegins", "GroupBreaks"}),
            (Lines{"RowBegins 1 of 1", "GroupBreaks", "RowBegins 2 of 1"}));
}

TEST(RunWitness, TellsFillerRowsFromRows) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}, {"FIntegralPage", 1}}).Line({}).FieldItem("FName");
  const Lines told = WitnessOf(scenario).Lines({"BandBegins", "Drawn"});
  EXPECT_EQ(told, (Lines{"BandBegins 1", "BandBegins 2", "BandBegins 3", "Drawn line ''",
                         "Drawn text '甲'", "BandBegins 6", "Drawn line ''", "BandBegins 4",
                         "BandBegins 5"}));
}

TEST(RunWitness, IsToldWhereTheTotalPageCountIsWritten) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 1}}).FieldItem("ftotalpageno", {{"FSite", 4}});
  scenario.Bills({2});
  EXPECT_EQ(WitnessOf(scenario).Lines({"StampKept", "StampWritten"}),
            (Lines{"StampKept 1", "StampKept 2", "StampWritten 1 on 1", "StampWritten 2 on 2"}));
}

TEST(RunWitness, IsToldWhatEndsABandBeforeItIsShown) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "一"}}).Item({{"FObjectCaption", "二"}});
  scenario.Fault({{"on", "TextBox"}, {"number", 5}, {"description", "坏了"}});
  EXPECT_EQ(WitnessOf(scenario).Lines({"ItemBegins", "ItemEnds", "Ends", "BandEnds", "RunEnds"}),
            (Lines{"BandEnds", "BandEnds", "ItemBegins 一", "Ends 坏了", "BandEnds", "BandEnds",
                   "BandEnds", "RunEnds"}));
}

TEST(RunWitness, IsToldOfALockAndOfAPrinterThatIsGone) {
  Scenario scenario;
  scenario.MachinePaper({{"FDevice", "P9"}}).Print({{"TDBillName", "销售单"}});
  scenario.Fault({{"on", "query"}, {"number", 5}, {"description", "被锁定"}, {"match", "FSite=1"}});
  EXPECT_EQ(WitnessOf(scenario).Lines({"TriesAgain", "Forgives"}),
            (Lines{"Forgives 380 in step at FDevice", "TriesAgain 被锁定"}));
}

TEST(RunWitness, IsToldOfTheEndOfARunThatAFailureLeaves) {
  Scenario scenario;
  scenario.Fault({{"on", "put:Orientation"}, {"number", 380}, {"description", "无效属性值"}});
  scenario.Format({{"FOrientation", 1}});
  EXPECT_EQ(WitnessOf(scenario).Lines(),
            (Lines{"RunBegins frmTdPrint 21 ''", "Forgives 380 in step at FOrientation", "RunEnds",
                   "Forgives 3021 in step at FDevice"}));
}

}  // namespace
}  // namespace td
