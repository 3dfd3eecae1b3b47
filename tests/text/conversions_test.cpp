#include "text/conversions.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "expect_failure.h"

namespace td {
namespace {

Value Text(const std::string& text) {
  return text;
}

const Value kNull = Null{};
const Value kBytes = Bytes{std::byte{1}};

TEST(ToText, WholeNumbersHaveNoPoint) {
  EXPECT_EQ(ToText(Value(std::int64_t{0})), "0");
  EXPECT_EQ(ToText(Value(std::int64_t{-1234567890123456789})), "-1234567890123456789");
  EXPECT_EQ(ToText(2.0), "2");
}

TEST(ToText, RealsHaveAtMostFifteenDigitsAndNoTrailingZeros) {
  EXPECT_EQ(ToText(0.1), "0.1");
  EXPECT_EQ(ToText(0.1 + 0.2), "0.3");
  EXPECT_EQ(ToText(1.50), "1.5");
  EXPECT_EQ(ToText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(ToText(-1234567.891), "-1234567.891");
  EXPECT_EQ(ToText(123456789012345.6), "123456789012346");
}

TEST(ToText, VeryLargeAndVerySmallRealsHaveAnExponent) {
  EXPECT_EQ(ToText(0.0001), "0.0001");
  EXPECT_EQ(ToText(0.00012345), "0.00012345");
  EXPECT_EQ(ToText(0.00001), "1E-05");
  EXPECT_EQ(ToText(999999999999999.0), "999999999999999");
  EXPECT_EQ(ToText(1e15), "1E+15");
  EXPECT_EQ(ToText(999999999999999.9), "1E+15");
  EXPECT_EQ(ToText(1.5e20), "1.5E+20");
  EXPECT_EQ(ToText(-2.5e-100), "-2.5E-100");
}

TEST(ToText, NegativeZeroHasNoSign) {
  EXPECT_EQ(ToText(-0.0), "0");
}

TEST(ToText, SinglesHaveAtMostSevenDigits) {
  EXPECT_EQ(ToText(0.1F), "0.1");
  EXPECT_EQ(ToText(11.25F), "11.25");
  EXPECT_EQ(ToText(1.0F / 3), "0.3333333");
  EXPECT_EQ(ToText(16777216.0F), "16777220");
}

TEST(ToText, WhatIsNoFiniteNumberHasAName) {
  EXPECT_EQ(ToText(std::numeric_limits<double>::infinity()), "Infinity");
  EXPECT_EQ(ToText(-std::numeric_limits<double>::infinity()), "-Infinity");
  EXPECT_EQ(ToText(std::nan("")), "NaN");
}

TEST(ToText, DatesShowTheTimeOnlyIfThereIsOne) {
  EXPECT_EQ(ToText(Value(Date{45413})), "2024-05-01");
  EXPECT_EQ(ToText(Value(Date{45413.5})), "2024-05-01 12:00:00");
  EXPECT_EQ(ToText(Value(Date{45413 + 47109.0 / 86400})), "2024-05-01 13:05:09");
  EXPECT_EQ(ToText(Value(Date{0})), "1899-12-30");
}

TEST(ToText, TheFractionOfADateBeforeTheFirstDayIsStillTheTimeOfDay) {
  EXPECT_EQ(ToText(Value(Date{-1.25})), "1899-12-29 06:00:00");
}

TEST(ToText, AMomentJustBeforeMidnightBelongsToTheNextDay) {
  EXPECT_EQ(ToText(Value(Date{45413.9999999})), "2024-05-02");
}

TEST(ToText, DatesOutsideTheCalendarOverflow) {
  EXPECT_EQ(ToText(Value(Date{2958465})), "9999-12-31");
  EXPECT_EQ(ToText(Value(Date{-657434})), "0100-01-01");
  ExpectFailure(kOverflow, [] { (void)ToText(Value(Date{2958466})); });
  ExpectFailure(kOverflow, [] { (void)ToText(Value(Date{2958465.9999999})); });
  ExpectFailure(kOverflow, [] { (void)ToText(Value(Date{-657435})); });
  ExpectFailure(kOverflow, [] { (void)ToText(Value(Date{std::nan("")})); });
}

TEST(ToText, OtherKinds) {
  EXPECT_EQ(ToText(Text(" 单号 ")), " 单号 ");
  EXPECT_EQ(ToText(Value(true)), "True");
  EXPECT_EQ(ToText(Value(false)), "False");
  ExpectFailure(kTypeMismatch, [] { (void)ToText(kBytes); });
}

TEST(ToText, NullJoinsAsEmptyButIsNoLoneText) {
  EXPECT_EQ(ToText(kNull), "");
  ExpectFailure(kInvalidUseOfNull, [] { (void)ToLoneText(kNull); });
  EXPECT_EQ(ToLoneText(Text("")), "");
}

TEST(Conversions, DoNotFollowTheMachinesLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "C.UTF-8"}) {
    std::setlocale(LC_ALL, name);
    EXPECT_EQ(ToText(1234.5), "1234.5");
    EXPECT_EQ(ToDouble(Text("1234.5")), 1234.5);
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(Val, ReadsTheLeadingNumber) {
  EXPECT_EQ(Val(Text("12.5kg")), 12.5);
  EXPECT_EQ(Val(Text("  -3 ")), -3);
  EXPECT_EQ(Val(Text("+.5.5")), 0.5);
  EXPECT_EQ(Val(Text("1E3x")), 1000);
  EXPECT_EQ(Val(Text("1e-2")), 0.01);
  EXPECT_EQ(Val(Text("1E+")), 1);
  EXPECT_EQ(Val(Text("1,234")), 1);
  EXPECT_EQ(Val(Text("5.")), 5);
}

TEST(Val, IsZeroWhereNoNumberLeads) {
  for (const char* text : {"", "   ", "kg 5", ".", "-", "E5", "True", "单号"}) {
    EXPECT_EQ(Val(Text(text)), 0) << text;
  }
  EXPECT_EQ(Val(Value(true)), 0);
}

TEST(Val, ReadsTheTextOfOtherKinds) {
  EXPECT_EQ(Val(Value(std::int64_t{7})), 7);
  EXPECT_EQ(Val(Value(1.25)), 1.25);
  EXPECT_EQ(Val(Value(Date{45413})), 2024);
  ExpectFailure(kInvalidUseOfNull, [] { (void)Val(kNull); });
  ExpectFailure(kTypeMismatch, [] { (void)Val(kBytes); });
}

TEST(Val, NumbersTooLargeOverflowAndNumbersTooSmallAreZero) {
  ExpectFailure(kOverflow, [] { (void)Val(Text("1E400")); });
  ExpectFailure(kOverflow, [] { (void)Val(Text("1E99999999999999999999")); });
  ExpectFailure(kOverflow, [] { (void)Val(Text(std::string(400, '9'))); });
  EXPECT_EQ(Val(Text("1E-400")), 0);
  EXPECT_EQ(Val(Text("0E99999999999")), 0);
  EXPECT_EQ(Val(Text("0." + std::string(400, '0') + "1")), 0);
  EXPECT_EQ(Val(Text(std::string(400, '0') + "12")), 12);
  EXPECT_EQ(Val(Text("1" + std::string(400, '0') + "E-400")), 1);
}

TEST(IsNumeric, TakesNumbersFlagsAndTextsThatAreNumbers) {
  EXPECT_TRUE(IsNumeric(Value(0.5)));
  EXPECT_TRUE(IsNumeric(Value(std::int64_t{5})));
  EXPECT_TRUE(IsNumeric(Value(true)));
  for (const char* text : {"0", " -12.5 ", "+3", ".5", "5.", "1E3", "1.5e-7", "1,234", "-12,345.6",
                           "1,234,567", "\t7\r\n"}) {
    EXPECT_TRUE(IsNumeric(Text(text))) << text;
  }
}

TEST(IsNumeric, RefusesEverythingElse) {
  EXPECT_FALSE(IsNumeric(kNull));
  EXPECT_FALSE(IsNumeric(Value(Date{1})));
  EXPECT_FALSE(IsNumeric(kBytes));
  for (const char* text : {"",      " ",     ".",        "-",    "12kg", "1 2",    "1E",      "1E+",
                           "1.2.3", "12,34", "1234,567", ",123", "1,",   "1,2345", "1.5,000", "- 5",
                           "True",  "0x10",  "Infinity", "NaN",  "１２", "1E400",  "1,234E"}) {
    EXPECT_FALSE(IsNumeric(Text(text))) << text;
  }
}

TEST(ToDouble, TakesEveryKindThatIsANumber) {
  EXPECT_EQ(ToDouble(Value(std::int64_t{-3})), -3);
  EXPECT_EQ(ToDouble(Value(0.1)), 0.1);
  EXPECT_EQ(ToDouble(Value(true)), 1);
  EXPECT_EQ(ToDouble(Value(Date{45413.5})), 45413.5);
  EXPECT_EQ(ToDouble(Text(" 1,234.5 ")), 1234.5);
  EXPECT_EQ(ToDouble(Text("0.1")), 0.1);
  EXPECT_EQ(ToDouble(Text("-1.7976931348623157E+308")), -std::numeric_limits<double>::max());
}

TEST(ToDouble, FailsOnWhatIsNone) {
  ExpectFailure(kInvalidUseOfNull, [] { (void)ToDouble(kNull); });
  ExpectFailure(kTypeMismatch, [] { (void)ToDouble(kBytes); });
  ExpectFailure(kTypeMismatch, [] { (void)ToDouble(Text("")); });
  ExpectFailure(kTypeMismatch, [] { (void)ToDouble(Text("12kg")); });
  ExpectFailure(kTypeMismatch, [] { (void)ToDouble(Text("True")); });
  ExpectFailure(kOverflow, [] { (void)ToDouble(Text("1E400")); });
}

TEST(ToSingle, OverflowsBeyondItsRange) {
  EXPECT_EQ(ToSingle(Text("11.25")), 11.25F);
  ExpectFailure(kOverflow, [] { (void)ToSingle(Value(1e39)); });
  ExpectFailure(kInvalidUseOfNull, [] { (void)ToSingle(kNull); });
}

TEST(WholeNumbers, RoundHalvesToEven) {
  EXPECT_EQ(ToInteger16(Value(0.5)), 0);
  EXPECT_EQ(ToInteger16(Value(1.5)), 2);
  EXPECT_EQ(ToInteger16(Value(2.5)), 2);
  EXPECT_EQ(ToInteger16(Value(-1.5)), -2);
  EXPECT_EQ(ToInteger32(Value(2.6)), 3);
  EXPECT_EQ(ToInteger32(Text("-2.4")), -2);
}

TEST(WholeNumbers, OverflowOutsideTheirRange) {
  EXPECT_EQ(ToInteger16(Value(std::int64_t{32767})), 32767);
  EXPECT_EQ(ToInteger16(Value(32767.4)), 32767);
  EXPECT_EQ(ToInteger16(Value(-32768.5)), -32768);
  ExpectFailure(kOverflow, [] { (void)ToInteger16(Value(32767.5)); });
  ExpectFailure(kOverflow, [] { (void)ToInteger16(Value(std::int64_t{-32769})); });
  EXPECT_EQ(ToInteger32(Text("2147483647")), 2147483647);
  ExpectFailure(kOverflow, [] { (void)ToInteger32(Value(std::int64_t{2147483648})); });
  ExpectFailure(kOverflow, [] { (void)ToInteger32(Value(std::nan(""))); });
}

TEST(WholeNumbers, FailOnNullAndOnOtherText) {
  ExpectFailure(kInvalidUseOfNull, [] { (void)ToInteger32(kNull); });
  ExpectFailure(kTypeMismatch, [] { (void)ToInteger16(Text("x")); });
}

TEST(ToFlag, IsTrueOfAnyNumberButZero) {
  EXPECT_FALSE(ToFlag(Value(std::int64_t{0})));
  EXPECT_TRUE(ToFlag(Value(-0.1)));
  EXPECT_TRUE(ToFlag(Text("-1")));
  EXPECT_FALSE(ToFlag(Text("0.0")));
  EXPECT_TRUE(ToFlag(Value(true)));
}

TEST(ToFlag, TakesTrueAndFalseInAnyCase) {
  EXPECT_TRUE(ToFlag(Text("tRUE")));
  EXPECT_FALSE(ToFlag(Text("FALSE")));
}

TEST(ToFlag, FailsOnOtherTextAndOnNull) {
  ExpectFailure(kTypeMismatch, [] { (void)ToFlag(Text("yes")); });
  ExpectFailure(kTypeMismatch, [] { (void)ToFlag(Text("")); });
  ExpectFailure(kInvalidUseOfNull, [] { (void)ToFlag(kNull); });
}

TEST(LowerCase, ChangesTheLettersAToZOnly) {
  EXPECT_EQ(LowerCase("FTotalPage_1_Dx单号Ä"), "ftotalpage_1_dx单号Ä");
}

TEST(RepeatText, RepeatsOrIsEmpty) {
  EXPECT_EQ(RepeatText("零", 3), "零零零");
  EXPECT_EQ(RepeatText("0", 0), "");
  EXPECT_EQ(RepeatText("0", -5), "");
  EXPECT_EQ(RepeatText("", 100), "");
}

}  // namespace
}  // namespace td
