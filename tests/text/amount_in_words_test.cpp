#include "text/amount_in_words.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <random>
#include <string>

#include "expect_failure.h"
#include "walking_reading.h"

namespace td {
namespace {

struct Example {
  double amount;
  const char* words;
};

void PrintTo(const Example& example, std::ostream* stream) {
  *stream << example.amount;
}

class WrittenAmount : public testing::TestWithParam<Example> {};

TEST_P(WrittenAmount, ReadsAsOnABill) {
  EXPECT_EQ(AmountInWords(GetParam().amount), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Bills, WrittenAmount,
    testing::Values(
        Example{0, "整"}, Example{0.004, "整"}, Example{-0.004, "(负)整"},
        Example{0.005, "零角壹分"}, Example{0.01, "零角壹分"}, Example{0.05, "零角伍分"},
        Example{-0.05, "(负)零角伍分"}, Example{0.10, "壹角整"}, Example{0.15, "壹角伍分"},
        Example{0.50, "伍角整"}, Example{0.995, "壹圆整"}, Example{1, "壹圆整"},
        Example{1.05, "壹圆零角伍分"}, Example{1.50, "壹圆伍角整"}, Example{1.55, "壹圆伍角伍分"},
        Example{9.995, "壹拾圆整"}, Example{10, "壹拾圆整"}, Example{10.05, "壹拾圆零角伍分"},
        Example{20.5, "贰拾圆伍角整"}, Example{100, "壹佰圆整"}, Example{100.10, "壹佰圆壹角整"},
        Example{101, "壹佰零壹圆整"}, Example{110, "壹佰壹拾圆整"}, Example{1001, "壹仟零壹圆整"},
        Example{1010, "壹仟零壹拾圆整"}, Example{1100, "壹仟壹佰圆整"},
        Example{-1234.56, "(负)壹仟贰佰叁拾肆圆伍角陆分"}, Example{10000, "壹万圆整"},
        Example{20000.02, "贰万圆零角贰分"}, Example{100000, "壹拾万圆整"},
        Example{100001, "壹拾万零壹圆整"}, Example{1000000.05, "壹佰万圆零角伍分"},
        Example{1010101.01, "壹佰零壹万零壹佰零壹圆零角壹分"}, Example{1200000, "壹佰贰拾万圆整"},
        Example{12345678, "壹仟贰佰叁拾肆万伍仟陆佰柒拾捌圆整"}, Example{100000000, "壹亿万圆整"},
        Example{100000001, "壹亿万零壹圆整"}, Example{100010000, "壹亿零壹万圆整"},
        Example{1000000000, "壹拾亿万圆整"},
        Example{123456789.01, "壹亿贰仟叁佰肆拾伍万陆仟柒佰捌拾玖圆零角壹分"},
        Example{999999999999.99, "玖仟玖佰玖拾玖亿玖仟玖佰玖拾玖万玖仟玖佰玖拾玖圆玖角玖分"},
        Example{1000000000000, "壹万亿万圆整"}, Example{1000000000000000, "壹仟万亿万圆整"}));

TEST(AmountInWords, ZeroTensAndUnitsCollapseIntoOneSpokenZero) {
  EXPECT_EQ(AmountInWords(1005.30), "壹仟零伍圆叁角整");
}

TEST(AmountInWords, AnEmptyGroupOfTenThousandsKeepsItsUnit) {
  EXPECT_EQ(AmountInWords(100000000), "壹亿万圆整");
  EXPECT_EQ(AmountInWords(200000003.04), "贰亿万零叁圆零角肆分");
}

TEST(AmountInWords, NegativeZeroIsNotNegative) {
  EXPECT_EQ(AmountInWords(-0.0), "整");
}

TEST(AmountInWords, TheSignIsThatBeforeRounding) {
  EXPECT_EQ(AmountInWords(-1e-300), "(负)整");
  EXPECT_EQ(AmountInWords(-0.005), "(负)零角壹分");
}

TEST(AmountInWords, HalvesGoUpOnTheDecimalReading) {
  EXPECT_EQ(AmountInWords(1.005), "壹圆零角壹分");  // the double lies below 1.005
  EXPECT_EQ(AmountInWords(2.675), "贰圆陆角捌分");  // and this one below 2.675
  EXPECT_EQ(AmountInWords(2.6749), "贰圆陆角柒分");
  EXPECT_EQ(AmountInWords(-2.675), "(负)贰圆陆角捌分");
}

TEST(AmountInWords, SixteenDigitsAllHaveUnits) {
  EXPECT_EQ(AmountInWords(1234567890123450.0),
            "壹仟贰佰叁拾肆万伍仟陆佰柒拾捌亿玖仟零壹拾贰万叁仟肆佰伍拾圆整");
}

TEST(AmountInWords, DigitsBeyondTheSixteenthHaveNoUnit) {
  EXPECT_EQ(AmountInWords(12345678901234500.0),
            "壹贰仟叁佰肆拾伍万陆仟柒佰捌拾玖亿零壹佰贰拾叁万肆仟伍佰圆整");
  EXPECT_EQ(AmountInWords(1e16), "壹万亿万圆整");
  EXPECT_EQ(AmountInWords(1.01e18), "壹零壹万亿万圆整");
}

TEST(AmountInWords, DigitsBeyondTheFifteenthReadAsZeros) {
  EXPECT_EQ(AmountInWords(12345678901234567.0), AmountInWords(12345678901234600.0));
}

TEST(AmountInWords, TheGreatestDoubleStillYieldsAText) {
  EXPECT_EQ(AmountInWords(std::numeric_limits<double>::max()),
            "壹柒玖柒陆玖叁壹叁肆捌陆贰叁贰万亿万圆整");
}

TEST(AmountInWords, WhatIsNoFiniteNumberFailsWithOverflow) {
  ExpectFailure(kOverflow, [] { (void)AmountInWords(std::numeric_limits<double>::infinity()); });
  ExpectFailure(kOverflow, [] { (void)AmountInWords(std::nan("")); });
}

// Both readings of one amount and of its negative.
testing::AssertionResult BothReadingsAgree(double amount) {
  for (const double signedAmount : {amount, -amount}) {
    const std::string words = AmountInWords(signedAmount);
    const std::string expected = WalkingReading(signedAmount);
    if (words != expected) {
      return testing::AssertionFailure()
             << std::to_string(signedAmount) << " gives " << words << ", not " << expected;
    }
  }
  return testing::AssertionSuccess();
}

TEST(BothReadings, AgreeOnAllAmountsOfCentsBelowAThousand) {
  for (int cents = 0; cents < 100'000; ++cents) {
    ASSERT_TRUE(BothReadingsAgree(cents / 100.0));
  }
}

TEST(BothReadings, AgreeOnHalvesAtTheThirdDecimal) {
  for (int cents = 0; cents < 100'000; ++cents) {
    ASSERT_TRUE(BothReadingsAgree((cents * 10 + 5) / 1000.0));
  }
}

// Amounts of all lengths up to 10^15, with many zeros among their digits.
TEST(BothReadings, AgreeOnRandomAmounts) {
  constexpr unsigned kSeed = 20240501;
  constexpr int kAmounts = 300'000;
  std::mt19937_64 random(kSeed);
  for (int i = 0; i < kAmounts; ++i) {
    const auto digits = static_cast<int>(random() % 17) + 1;
    double cents = 0;
    for (int k = 0; k < digits; ++k) {
      const bool zero = random() % 3 == 0;
      cents = cents * 10 + (zero ? 0.0 : static_cast<double>(random() % 10));
    }
    ASSERT_TRUE(BothReadingsAgree(cents / 100.0));
  }
}

}  // namespace
}  // namespace td
