// Reading of date serials in the Gregorian calendar.
#pragma once

namespace td {

struct CalendarTime {
  int days = 0;  // since 30 December 1899
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

// The moment of a serial: whole days since 30 December 1899, the fraction without its sign being
// the time of day, to the nearest second. Fails with kOverflow outside the years 100 to 9999.
[[nodiscard]] CalendarTime ReadSerial(double serial);

}  // namespace td
