#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "print_log/log_time.h"

namespace td {
namespace {

// A place as long as the object lives.
class InZone {
 public:
  explicit InZone(const char* zone) { Put(zone); }
  ~InZone() { Put(""); }
  InZone(const InZone&) = delete;
  InZone& operator=(const InZone&) = delete;

 private:
  static void Put(const char* zone) {
    _putenv_s("TZ", zone);
    _tzset();
  }
};

TEST(LogTimes, AreLocalWithTheirDistanceFromGreenwich) {
  const LogTime time = *ParseLogTime("2024-03-01T01:30:00.125Z");
  const auto in = [time](const char* zone) {
    const InZone here(zone);
    return LogTimeText(time);
  };
  EXPECT_EQ(in("CST-8"), "2024-03-01T09:30:00.125+08:00");
  EXPECT_EQ(in("NST3:30"), "2024-02-29T22:00:00.125-03:30");
  EXPECT_EQ(in("UTC0"), "2024-03-01T01:30:00.125+00:00");
}

TEST(LogTimes, AreReadWhereverTheyWereWritten) {
  const LogTime time = *ParseLogTime("2024-07-01T12:00:00.007Z");
  for (const char* zone : {"CST-8", "NST3:30"}) {
    const InZone there(zone);
    EXPECT_EQ(ParseLogTime(LogTimeText(time)), time) << zone;
  }
}

TEST(LogTimes, ADayIsThatOfTheZone) {
  const InZone here("CST-8");
  const auto day = ParseTimeSpan("2024-03-01");
  ASSERT_TRUE(day.has_value());
  EXPECT_EQ(day->begin, *ParseLogTime("2024-02-29T16:00:00Z"));
  EXPECT_EQ(day->end, *ParseLogTime("2024-03-01T16:00:00Z"));
}

}  // namespace
}  // namespace td
