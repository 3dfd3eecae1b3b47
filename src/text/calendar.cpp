#include "text/calendar.h"

#include <chrono>
#include <cmath>

#include "platform/standard_failures.h"

namespace td {
namespace {

using namespace std::chrono;

constexpr sys_days kDayZero{December / 30 / 1899};

}  // namespace

double DaySerial(sys_days day) {
  return static_cast<double>((day - kDayZero).count());
}

double MomentSerial(double daySerial, double partOfDay) {
  return daySerial < 0 ? daySerial - partOfDay : daySerial + partOfDay;
}

CalendarTime ReadSerial(double serial) {
  constexpr double kFirstSerial = -657434;  // 1 January 100
  constexpr double kEndSerial = 2958466;    // 1 January 10000
  // Written so that a serial that is no number fails, too.
  if (!(serial > kFirstSerial - 1 && serial < kEndSerial)) throw OverflowFailure();

  double wholeDays = 0;
  const double fraction = std::fabs(std::modf(serial, &wholeDays));
  int wholeDay = static_cast<int>(wholeDays);
  int seconds = static_cast<int>(std::lround(fraction * kSecondsPerDay));
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    ++wholeDay;
  }
  if (wholeDay >= kEndSerial) throw OverflowFailure();

  const sys_days date = kDayZero + days{wholeDay};
  const year_month_day parts{date};
  const sys_days newYear{parts.year() / January / 1};
  CalendarTime result;
  result.days = wholeDay;
  result.year = static_cast<int>(parts.year());
  result.month = static_cast<int>(static_cast<unsigned>(parts.month()));
  result.day = static_cast<int>(static_cast<unsigned>(parts.day()));
  result.weekday = static_cast<int>(weekday{date}.c_encoding());
  result.dayOfYear = static_cast<int>((date - newYear).count()) + 1;
  result.hour = seconds / 3600;
  result.minute = seconds / 60 % 60;
  result.second = seconds % 60;
  return result;
}

}  // namespace td
