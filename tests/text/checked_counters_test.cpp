#include "platform/checked_counters.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "expect_failure.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

TEST(CheckedCounter, ReachesTheEndsOfItsRange) {
  std::int16_t small = 32766;
  AddChecked(small, 1);
  EXPECT_EQ(small, 32767);
  AddChecked(small, -65535);
  EXPECT_EQ(small, -32768);
  std::int32_t large = 2147483646;
  AddChecked(large, 1);
  EXPECT_EQ(large, 2147483647);
}

TEST(CheckedCounter, FailsBeyondItsRangeAndKeepsItsValue) {
  std::int16_t small = 32767;
  ExpectFailure(kOverflow, [&small] { AddChecked(small, 1); });
  EXPECT_EQ(small, 32767);
  std::int32_t large = -2147483647;
  ExpectFailure(kOverflow, [&large] { AddChecked(large, -2); });
  EXPECT_EQ(large, -2147483647);
}

TEST(StandardFailures, HaveTheNumbersThatTheRoutinesTellApart) {
  EXPECT_EQ(NullFailure().Number(), 94);
  EXPECT_EQ(MismatchFailure().Number(), 13);
  EXPECT_EQ(OverflowFailure().Number(), 6);
  EXPECT_EQ(DivisionByZeroFailure().Number(), 11);
  EXPECT_EQ(NoSuchColumnFailure("FQty").Number(), 3265);
  EXPECT_EQ(NoCurrentRowFailure().Number(), 3021);
  EXPECT_EQ(ClosedFailure().Number(), 3704);
  EXPECT_EQ(InvalidCallFailure().Number(), 5);
}

TEST(StandardFailures, NameTheMissingColumn) {
  EXPECT_TRUE(NoSuchColumnFailure("FQty").Description().ends_with("FQty"));
}

TEST(StandardFailures, AColumnNamedAfterALockIsNoLockConflict) {
  EXPECT_EQ(NoSuchColumnFailure("锁定").Description().find("锁"), std::string::npos);
}

}  // namespace
}  // namespace td
