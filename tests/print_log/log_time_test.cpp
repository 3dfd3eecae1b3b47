#include "print_log/log_time.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

namespace td {
namespace {

using namespace std::chrono_literals;

// A place that keeps summer time, as long as the object lives.
class InZone {
 public:
  explicit InZone(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
  ~InZone() {
    unsetenv("TZ");
    tzset();
  }
  InZone(const InZone&) = delete;
  InZone& operator=(const InZone&) = delete;
};

constexpr const char* kShanghai = "CST-8";
constexpr const char* kBerlin = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr const char* kNewfoundland = "NST3:30";

TEST(LogTimes, AreLocalWithTheirDistanceFromGreenwich) {
  const LogTime time = *ParseLogTime("2024-03-01T01:30:00.125Z");
  const auto in = [time](const char* zone) {
    const InZone here(zone);
    return LogTimeText(time);
  };
  EXPECT_EQ(in(kShanghai), "2024-03-01T09:30:00.125+08:00");
  EXPECT_EQ(in(kNewfoundland), "2024-02-29T22:00:00.125-03:30");
}

TEST(LogTimes, AreReadWhereverTheyWereWritten) {
  const LogTime time = *ParseLogTime("2024-07-01T12:00:00.007Z");
  for (const char* zone : {kShanghai, kBerlin, kNewfoundland}) {
    const InZone there(zone);
    EXPECT_EQ(ParseLogTime(LogTimeText(time)), time) << zone;
  }
  EXPECT_EQ(ParseLogTime("2024-07-01T12:00:00Z"), time - 7ms);
}

TEST(LogTimes, RefuseWhatIsNone) {
  for (const char* text :
       {"", "2024", "2024-07-01", "2024-07-01T12:00:00", "2024-07-01T12:00:00.1Z",
        "2024-13-01T12:00:00Z", "2024-02-30T12:00:00Z", "2024-07-01T24:00:00Z",
        "2024-07-01T12:61:00Z", "2024-07-01T12:00:00Zx", "2024-07-01T12:00:00+8",
        "+024-07-01T12:00:00Z", "2024--1-01T12:00:00Z"}) {
    EXPECT_EQ(ParseLogTime(text), std::nullopt) << text;
  }
}

TEST(TimeSpans, AreWholeDaysMinutesOrSecondsOfLocalTime) {
  const InZone here(kShanghai);
  const auto day = ParseTimeSpan("2024-03-01");
  ASSERT_TRUE(day);
  EXPECT_EQ(day->begin, ParseLogTime("2024-03-01T00:00:00+08:00"));
  EXPECT_EQ(day->end - day->begin, 24h);
  const auto minute = ParseTimeSpan("2024-03-01 09:30");
  ASSERT_TRUE(minute);
  EXPECT_EQ(minute->begin, ParseLogTime("2024-03-01T09:30:00+08:00"));
  EXPECT_EQ(minute->end - minute->begin, 1min);
  const auto second = ParseTimeSpan("2024-03-01T09:30:15");
  ASSERT_TRUE(second);
  EXPECT_EQ(second->begin, minute->begin + 15s);
  EXPECT_EQ(second->end - second->begin, 1s);
}

TEST(TimeSpans, KnowTheDayThatSummerTimeShortens) {
  const InZone here(kBerlin);
  const auto day = ParseTimeSpan("2024-03-31");
  ASSERT_TRUE(day);
  EXPECT_EQ(day->end - day->begin, 23h);
}

TEST(TimeSpans, RefuseWhatIsNone) {
  for (const char* text : {"", "today", "2024-3-1", "2024-03-01 9:30", "2024-03-01 09:30:15 ",
                           "2023-02-29", "01.03.2024"}) {
    EXPECT_FALSE(ParseTimeSpan(text)) << text;
  }
}

}  // namespace
}  // namespace td
