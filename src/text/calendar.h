// Date serials: days since day zero, 30 December 1899 in the Gregorian calendar.
#pragma once

#include <chrono>

namespace td {

struct CalendarTime {
  int days = 0;  // since day zero
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;
  int weekday = 0;    // 0 Sunday to 6 Saturday
  int dayOfYear = 0;  // from 1
  int hour = 0;
  int minute = 0;
  int second = 0;

  [[nodiscard]] bool HasTime() const { return hour != 0 || minute != 0 || second != 0; }
};

// The serial of a day, and of a moment of it: `partOfDay` (0 to below 1) counts away from zero, as
// the fraction of a serial has the sign of its day.
[[nodiscard]] double DaySerial(std::chrono::sys_days day);
[[nodiscard]] double MomentSerial(double daySerial, double partOfDay);

inline constexpr double kSecondsPerDay = 86400;

// The moment of a serial: whole days since day zero, the fraction without its sign being the time
// of day, to the nearest second. Fails with kOverflow outside the years 100 to 9999.
[[nodiscard]] CalendarTime ReadSerial(double serial);

}  // namespace td
