// Quantities in two units, and the number of the row.
#include <gtest/gtest.h>

#include <ostream>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// A quantity field and the columns that it reads.
struct Quantity {
  const char* field;
  const char* main;
  const char* composed;  // zero: no text in two units
  const char* small;
  const char* mainUnit;
  const char* fallback;
};

void PrintTo(const Quantity& quantity, std::ostream* out) {
  *out << quantity.field;
}

std::string NameOf(const testing::TestParamInfo<Quantity>& quantity) {
  return quantity.param.field;
}

const Quantity kTotal = {"FComplexQTY", "FMainQty", "FMainQty", "FSlaveQty", "FMUnit", "FQty"};
const Quantity kIn = {"fcomplexqty_IN", "FMainQty_In", "FQty_In",
                      "FSlaveQty_In",   "FMainUnit",   "FSlaveQty_In"};
const Quantity kOut = {"FComplexQty_Out", "FMainQty_out", "FMainQty_out",
                       "FSlaveQty_out",   "FMainUnit",    "FSlaveQty_out"};

// 3 boxes and 5 bottles, 41 bottles in all, in each of the three ways.
Json FullRow() {
  return {{"FInterID", 1},     {"FQty", 41},         {"FMainQty", 3},     {"FSlaveQty", 5},
          {"FQty_In", 41},     {"FMainQty_In", 3},   {"FSlaveQty_In", 5}, {"FQty_out", 41},
          {"FMainQty_out", 3}, {"FSlaveQty_out", 5}, {"FMUnit", "箱"},    {"FMainUnit", "箱"},
          {"FUnit", "瓶"}};
}

Json DataOf(const std::vector<Json>& rows) {
  Json data = {{"columns", Json::array()}, {"rows", Json::array()}};
  for (const auto& [column, value] : rows.front().items()) data["columns"].push_back(column);
  for (const Json& row : rows) {
    Json values = Json::array();
    for (const Json& value : row) values.push_back(value);
    data["rows"].push_back(values);
  }
  return data;
}

Json Changed(Scenario::Fields changes) {
  Json row = FullRow();
  for (const auto& [column, value] : changes) row[column] = value;
  return row;
}

Json Without(const char* column) {
  Json row = FullRow();
  row.erase(column);
  return row;
}

Scenario QuantityScenario(const Quantity& quantity) {
  Scenario scenario;
  scenario.FieldItem(quantity.field, {{"FObjectCaption", "数："}});
  return scenario;
}

// The texts of the rows, without any message.
Texts TextsOf(Scenario scenario, const std::vector<Json>& rows) {
  const Trace trace = scenario.Print({{"data", DataOf(rows)}}).Run();
  EXPECT_TRUE(trace.Messages().empty()) << trace.Text();
  return trace.Texts();
}

Texts TextsOf(const Quantity& quantity, const Json& row) {
  return TextsOf(QuantityScenario(quantity), {row});
}

// With the setting under which a quantity that is not composed prints all the same.
Texts MustShowTextsOf(const Quantity& quantity, const Json& row) {
  return TextsOf(QuantityScenario(quantity).Setting("MustShowComplexQty", "1"), {row});
}

class EachQuantity : public testing::TestWithParam<Quantity> {};

INSTANTIATE_TEST_SUITE_P(Fields, EachQuantity, testing::Values(kTotal, kIn, kOut), NameOf);

TEST_P(EachQuantity, JoinsBothUnits) {
  EXPECT_EQ(TextsOf(GetParam(), FullRow()), (Texts{"数：3箱+5瓶"}));
}

TEST_P(EachQuantity, HasNoSmallPartForZeroOrNull) {
  const Quantity& quantity = GetParam();
  EXPECT_EQ(TextsOf(quantity, Changed({{quantity.small, 0}})), (Texts{"数：3箱"}));
  EXPECT_EQ(TextsOf(quantity, Changed({{quantity.small, nullptr}})), (Texts{"数：3箱"}));
}

TEST_P(EachQuantity, PrintsReturnsWithoutSign) {
  const Quantity& quantity = GetParam();
  EXPECT_EQ(TextsOf(quantity, Changed({{quantity.main, -2.5}, {quantity.small, "-3"}})),
            (Texts{"数：2.5箱+3瓶"}));
}

TEST_P(EachQuantity, JoinsANullUnitAsNothing) {
  const Quantity& quantity = GetParam();
  EXPECT_EQ(TextsOf(quantity, Changed({{quantity.mainUnit, nullptr}, {"FUnit", nullptr}})),
            (Texts{"数：3+5"}));
}

TEST_P(EachQuantity, IgnoresThePicture) {
  Scenario scenario;
  scenario.FieldItem(GetParam().field, {{"FFormatString", "0.00"}});
  EXPECT_EQ(TextsOf(scenario, {FullRow()}), (Texts{"3箱+5瓶"}));
}

TEST_P(EachQuantity, PrintsTheCaptionAloneWhereNothingIsComposed) {
  const Quantity& quantity = GetParam();
  EXPECT_EQ(TextsOf(quantity, Changed({{quantity.composed, 0}})), (Texts{"数："}));
}

TEST_P(EachQuantity, FallsBackToItsOtherQuantityWithTheSignIfItMustShow) {
  const Quantity& quantity = GetParam();
  const Json row = Changed({{quantity.composed, 0}, {quantity.fallback, -7}});
  EXPECT_EQ(MustShowTextsOf(quantity, row), (Texts{"数：-7瓶"}));
}

TEST_P(EachQuantity, FallsBackToNothingForNulls) {
  const Quantity& quantity = GetParam();
  const Json row =
      Changed({{quantity.composed, 0}, {quantity.fallback, nullptr}, {"FUnit", nullptr}});
  EXPECT_EQ(MustShowTextsOf(quantity, row), (Texts{"数："}));
}

TEST_P(EachQuantity, RepeatsTheItemBeforeInTheBandWhereNothingIsComposed) {
  const Quantity& quantity = GetParam();
  const Quantity& before = quantity.composed == std::string("FQty_In") ? kOut : kIn;
  Scenario scenario = QuantityScenario(before);
  scenario.FieldItem(quantity.field, {{"FObjectCaption", "又："}});
  EXPECT_EQ(TextsOf(scenario, {Changed({{quantity.composed, 0}})}),
            (Texts{"数：3箱+5瓶", "又：3箱+5瓶"}));
}

TEST_P(EachQuantity, DoesNotCarryOverToTheNextRow) {
  const Quantity& quantity = GetParam();
  const std::vector<Json> rows = {FullRow(), Changed({{quantity.composed, 0}})};
  EXPECT_EQ(TextsOf(QuantityScenario(quantity), rows), (Texts{"数：3箱+5瓶", "数："}));
}

TEST_P(EachQuantity, PrintsTheCaptionAloneIfAPartOfTheTextIsMissing) {
  const Quantity& quantity = GetParam();
  for (const char* column : {quantity.small, quantity.mainUnit, "FUnit"}) {
    EXPECT_EQ(TextsOf(quantity, Without(column)), (Texts{"数："})) << column;
  }
}

TEST_P(EachQuantity, NeedsTheSmallUnitAlsoWhereThereIsNoSmallPart) {
  const Quantity& quantity = GetParam();
  Json row = Changed({{quantity.small, 0}});
  row.erase("FUnit");
  EXPECT_EQ(TextsOf(quantity, row), (Texts{"数："}));
}

TEST_P(EachQuantity, ThatIsNoNumberEndsTheBandWithAMessage) {
  const Quantity& quantity = GetParam();
  for (const char* column : {quantity.main, quantity.small}) {
    Scenario scenario = QuantityScenario(quantity);
    scenario.Item({{"FObjectCaption", "后"}});
    scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}});
    scenario.Print({{"data", DataOf({Changed({{column, "若干"}})})}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Texts(), (Texts{"脚"})) << "the run goes on";
    EXPECT_EQ(trace.Messages().size(), 1U);
  }
}

TEST_P(EachQuantity, BehindTheLastRowEndsTheBandWithAMessage) {
  Scenario scenario;
  scenario.FieldItem(GetParam().field, {{"FSite", 5}});
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "后"}});
  const Trace trace = scenario.Print({{"data", DataOf({FullRow()})}}).Run();
  EXPECT_TRUE(trace.Texts().empty());
  EXPECT_EQ(trace.Messages().size(), 1U);
}

TEST(QuantityFields, ANullDecidesForEachDirectionByAColumnOfItsOwn) {
  EXPECT_EQ(TextsOf(kIn, Changed({{"FMainQty_In", nullptr}})), Texts{});
  EXPECT_EQ(TextsOf(kIn, Changed({{"FQty_In", nullptr}})), (Texts{"数："}));
  EXPECT_EQ(TextsOf(kOut, Changed({{"FQty_out", nullptr}})), Texts{});
  EXPECT_EQ(TextsOf(kOut, Changed({{"FMainQty_out", nullptr}})), (Texts{"数："}));
  EXPECT_EQ(TextsOf(kTotal, Changed({{"FMainQty", nullptr}})), (Texts{"数："}));
}

TEST(QuantityFields, ANullStopsADirectionEvenIfItMustShow) {
  EXPECT_EQ(MustShowTextsOf(kIn, Changed({{"FMainQty_In", nullptr}})), Texts{});
  EXPECT_EQ(MustShowTextsOf(kOut, Changed({{"FQty_out", nullptr}})), Texts{});
  EXPECT_EQ(MustShowTextsOf(kTotal, Changed({{"FMainQty", nullptr}})), (Texts{"数：41瓶"}));
}

TEST(QuantityFields, AMissingColumnOfThatTestStopsADirection) {
  EXPECT_EQ(TextsOf(kIn, Without("FMainQty_In")), Texts{});
  EXPECT_EQ(TextsOf(kOut, Without("FQty_out")), Texts{});
}

TEST(QuantityFields, AMissingColumnOfTheZeroTestComposesTheTextAllTheSame) {
  EXPECT_EQ(TextsOf(kIn, Without("FQty_In")), (Texts{"数：3箱+5瓶"}));
  EXPECT_EQ(TextsOf(kOut, Without("FMainQty_out")), (Texts{"数："})) << "it is a part, too";
}

TEST(QuantityFields, ZeroDecidesForEachDirectionByAColumnOfItsOwn) {
  EXPECT_EQ(TextsOf(kIn, Changed({{"FQty_In", 0}, {"FMainQty_In", 4}})), (Texts{"数："}));
  EXPECT_EQ(TextsOf(kIn, Changed({{"FMainQty_In", 0}})), (Texts{"数：0箱+5瓶"}));
  EXPECT_EQ(TextsOf(kOut, Changed({{"FMainQty_out", 0}})), (Texts{"数："}));
  EXPECT_EQ(TextsOf(kOut, Changed({{"FQty_out", 0}})), (Texts{"数：3箱+5瓶"}));
}

TEST(QuantityFields, TextThatIsANumberCountsAsOne) {
  EXPECT_EQ(TextsOf(kTotal, Changed({{"FMainQty", "0.0"}})), (Texts{"数："}));
  EXPECT_EQ(TextsOf(kTotal, Changed({{"FMainQty", " -1,200.50 "}, {"FSlaveQty", "0"}})),
            (Texts{"数：1200.5箱"}));
}

TEST(QuantityFields, AMissingMainQuantityStillPrintsTheCaptionAndNeverFallsBack) {
  EXPECT_EQ(TextsOf(kTotal, Without("FMainQty")), (Texts{"数："}));
  EXPECT_EQ(MustShowTextsOf(kTotal, Without("FMainQty")), (Texts{"数："}));
}

TEST(QuantityFields, TheFallbackNeedsTheSmallUnitsColumn) {
  Json row = Changed({{"FMainQty", 0}});
  row.erase("FUnit");
  EXPECT_EQ(MustShowTextsOf(kTotal, row), (Texts{"数："}));
}

TEST(QuantityFields, OnlyTheTotalNamesItsMainUnitDifferently) {
  const Json row = Changed({{"FMUnit", "件"}});
  EXPECT_EQ(TextsOf(kTotal, row), (Texts{"数：3件+5瓶"}));
  EXPECT_EQ(TextsOf(kIn, row), (Texts{"数：3箱+5瓶"}));
  EXPECT_EQ(TextsOf(kOut, row), (Texts{"数：3箱+5瓶"}));
}

TEST(QuantityFields, TheSettingIsOnOnlyForTheTextOne) {
  const Json row = Changed({{"FMainQty", 0}});
  for (const Json& value : {Json("0"), Json("2"), Json("True"), Json(nullptr)}) {
    const Scenario scenario = QuantityScenario(kTotal).Setting("MustShowComplexQty", value);
    EXPECT_EQ(TextsOf(scenario, {row}), (Texts{"数："})) << value;
  }
}

TEST(RowNumber, PrintsAsAWholeNumberBehindTheCaptionWithoutThePicture) {
  Scenario scenario;
  scenario.FieldItem("FOrderID", {{"FObjectCaption", "第"}, {"FFormatString", "000"}}).Bills({2});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"第1", "第2"}));
}

TEST(RowNumber, BehindTheRowsIsThatOfTheRowToCome) {
  Scenario scenario;
  scenario.FieldItem("forderid", {{"FSite", 5}}).Bills({2});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"3"}));
}

}  // namespace
}  // namespace td
