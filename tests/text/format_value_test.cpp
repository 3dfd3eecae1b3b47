#include "text/format_value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>

#include "expect_failure.h"
#include "text/amount_in_words.h"
#include "text/conversions.h"

namespace td {
namespace {

TEST(FormatValue, EmptyPictureGivesThePlainTextOfEveryKind) {
  for (const Value& value : {Value(Null{}), Value(true), Value(std::int64_t{7}), Value(1.50),
                             Value(std::string("单号")), Value(Date{45413.5})}) {
    EXPECT_EQ(FormatValue(value, ""), ToText(value));
  }
}

TEST(FormatValue, AmountInWordsPassesThroughANumberPictureUnharmed) {
  const std::string words = AmountInWords(-1005.3);
  EXPECT_EQ(FormatValue(words, "#,##0.00"), words);
}

TEST(FormatValue, BytesFailUnderEveryPicture) {
  const Value bytes = Bytes{std::byte{1}};
  for (const char* picture : {"", "0.00", "@@", "yyyy", "General Number", "Yes/No"}) {
    ExpectFailure(kTypeMismatch, [&] { (void)FormatValue(bytes, picture); });
  }
}

TEST(FormatValue, DatesOutsideTheCalendarOverflowUnderADatePicture) {
  ExpectFailure(kOverflow, [] { (void)FormatValue(1e10, "yyyy"); });
  ExpectFailure(kOverflow, [] { (void)FormatValue(-1e6, "Long Date"); });
  ExpectFailure(kOverflow, [] { (void)FormatValue(std::string("1E300"), "c"); });
}

TEST(FormatValue, WhatIsNoFiniteNumberKeepsItsPlainText) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(FormatValue(infinity, "0.00"), "Infinity");
  EXPECT_EQ(FormatValue(-infinity, "yyyy"), "-Infinity");
  EXPECT_EQ(FormatValue(std::nan(""), "Standard"), "NaN");
}

TEST(FormatValue, ANumberTooLargeInATextKeepsItsText) {
  EXPECT_EQ(FormatValue(std::string("1E400"), "0.00"), "1E400");
}

TEST(FormatValue, TheGreatestAndTheSmallestDoubleHaveAllTheirDigits) {
  const std::string greatest = FormatValue(std::numeric_limits<double>::max(), "#,##0");
  EXPECT_TRUE(greatest.starts_with("179,769,313,486,232,000,")) << greatest;
  EXPECT_EQ(greatest.size(), 309U + 102U);
  EXPECT_EQ(FormatValue(std::numeric_limits<double>::denorm_min(), "0.0E+000"), "4.9E-324");
  EXPECT_EQ(FormatValue(std::numeric_limits<double>::lowest(), "0.00E+00"), "-1.80E+308");
}

TEST(FormatValue, ExtremeWholeNumbersKeepAllDigits) {
  EXPECT_EQ(FormatValue(std::numeric_limits<std::int64_t>::min(), "#,##0"),
            "-9,223,372,036,854,775,808");
  EXPECT_EQ(FormatValue(std::numeric_limits<std::int64_t>::max(), "0.0"), "9223372036854775807.0");
}

TEST(FormatValue, BrokenUtf8PassesByteByByte) {
  EXPECT_EQ(FormatValue(std::int64_t{5}, "0\xE5\x8D"), "5\xE5\x8D");
  EXPECT_EQ(FormatValue(std::string("\xFF\xE5z"), "!@-@-@-@"), "\xFF-\xE5-z- ");
}

TEST(FormatValue, APictureWidenedForAPriceShowsAllDecimals) {
  EXPECT_EQ(FormatValue(1.2345, "0." + RepeatText("0", 4)), "1.2345");
}

TEST(FormatValue, TwoDecimalsAgreeWithTheCentsOfEveryAmountBelowAThousand) {
  for (int cents = 0; cents < 100'000; ++cents) {
    const std::string whole = std::to_string(cents / 100);
    const std::string rest = std::to_string(100 + cents % 100).substr(1);
    std::string expected = whole;
    expected += '.';
    expected += rest;
    ASSERT_EQ(FormatValue(cents / 100.0, "0.00"), expected);
    // A half at the third decimal goes up, and down for negative amounts.
    ASSERT_EQ(FormatValue((cents * 10 - 5) / 1000.0, "0.00"), cents == 0 ? "-0.01" : expected);
  }
}

}  // namespace
}  // namespace td
