// The picture of a price grows until it shows all decimals of the price.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// How the column `field` with this value prints in a row under `picture`.
std::string Printed(const std::string& field, const Json& value, const Json& picture) {
  Scenario scenario;
  scenario.FieldItem(field, {{"FFormatString", picture}});
  scenario.Data({"FInterID", field}, {{1, value}});
  const Texts texts = scenario.Run().Texts();
  return texts.size() == 1 ? texts.front() : "no single text";
}

TEST(PriceRule, APriceShowsAllItsDecimals) {
  EXPECT_EQ(Printed("FPrice", 1.2345, "0.00"), "1.2345");
  EXPECT_EQ(Printed("FPrice", -1.2345, "0.00"), "-1.2345");
  EXPECT_EQ(Printed("FPrice", 0.123456, "#.0"), ".123456");
}

TEST(PriceRule, AnyOtherNumberIsCutByItsPicture) {
  EXPECT_EQ(Printed("FAmount", 1.2345, "0.00"), "1.23");
  EXPECT_EQ(Printed("FPric", 1.2345, "0.00"), "1.23");
}

TEST(PriceRule, TheWordMayStandAnywhereInTheNameInAnyCase) {
  EXPECT_EQ(Printed("FNoTaxPRICE_1", 1.2345, "0.00"), "1.2345");
  EXPECT_EQ(Printed("pricelist", 1.2345, "0.00"), "1.2345");
}

TEST(PriceRule, APriceHasAtLeastTheDecimalsOfItsPicture) {
  EXPECT_EQ(Printed("FPrice", 2, "0.00"), "2.00");
  EXPECT_EQ(Printed("FPrice", 1.5, "0.00"), "1.50");
  EXPECT_EQ(Printed("FPrice", 1.25, "0.00"), "1.25");
}

TEST(PriceRule, APictureWithoutAPointCutsThePrice) {
  EXPECT_EQ(Printed("FPrice", 1.2345, "0"), "1");
}

TEST(PriceRule, TheWholePartOfThePictureStays) {
  EXPECT_EQ(Printed("FPrice", 1234.5678, "¥#,##0.00"), "¥1,234.5678");
}

TEST(PriceRule, WhatStandsBehindTheDigitPlacesIsLostWhenThePictureGrows) {
  EXPECT_EQ(Printed("FPrice", 1.2345, "0.00元"), "1.2345");
  EXPECT_EQ(Printed("FPrice", 1.23, "0.00元"), "1.23元");
}

TEST(PriceRule, CharactersBehindThePointCountAsDecimals) {
  EXPECT_EQ(Printed("FPrice", 1.236, "0.00元"), "1.24元")
      << "three decimals are not more than three";
  EXPECT_EQ(Printed("FPrice", 1.234, "0.0元"), "1.234") << "but more than two";
}

TEST(PriceRule, HashPlacesBecomeZeroPlacesOnlyWhenThePictureGrows) {
  EXPECT_EQ(Printed("FPrice", 1.5, "0.0##"), "1.5");
  EXPECT_EQ(Printed("FPrice", "1.50000", "0.0##"), "1.50000") << "five decimals as text";
}

TEST(PriceRule, TheDecimalsOfAPriceInTextAreThoseOfTheText) {
  EXPECT_EQ(Printed("FPrice", "1.2340", "0.00"), "1.2340");
  EXPECT_EQ(Printed("FPrice", "1,234.5678", "#,##0.00"), "1,234.5678");
}

TEST(PriceRule, TheExponentOfAVerySmallPriceCountsAsDecimals) {
  EXPECT_EQ(Printed("FPrice", 0.00001234, "0.00"), "0.0000123") << "the text is 1.234E-05";
  EXPECT_EQ(Printed("FPrice", 0.00001, "0.00"), "0.00") << "the text is 1E-05, without a point";
}

TEST(PriceRule, WithoutAPictureThePricePrintsPlain) {
  EXPECT_EQ(Printed("FPrice", 1.2345, ""), "1.2345");
  EXPECT_EQ(Printed("FPrice", 1.2345, nullptr), "1.2345");
}

TEST(PriceRule, APriceThatIsNoNumberPrintsPlain) {
  EXPECT_EQ(Printed("FPrice", "面议.1.2345", "0.00"), "面议.1.2345");
  EXPECT_EQ(Printed("FPrice", nullptr, "0.00"), "");
}

TEST(PriceRule, HoldsInEveryBandWhileThereAreRows) {
  Scenario scenario;
  scenario.FieldItem("FPrice", {{"FSite", 4}, {"FFormatString", "0.00"}});
  scenario.Data({"FInterID", "FPrice"}, {{1, 1.2345}}).Format({{"FRowsPerPage", 1}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"1.2345"}));
}

TEST(PriceRule, BehindTheLastRowThePictureCutsThePriceOfTheBillsFirstRow) {
  Scenario scenario;
  scenario.FieldItem("FPrice", {{"FSite", 5}, {"FFormatString", "0.00"}});
  scenario.Data({"FInterID", "FPrice"}, {{1, 1.2345}, {1, 9.8765}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"1.23"}));
}

TEST(PriceRule, DoesNotReachTheHead) {
  Scenario scenario;
  scenario.FieldItem("FPrice", {{"FSite", 1}, {"FFormatString", "0.0"}});
  scenario.Data({"FInterID", "FPrice"}, {{1, 1.2345}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"1.2345"})) << "no picture is used there at all";
}

}  // namespace
}  // namespace td
