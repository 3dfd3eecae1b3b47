#include "print_log/log_time.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "print_log/local_time.h"

namespace td {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// Takes texts apart from their front.
class Taker {
 public:
  explicit Taker(std::string_view text) : rest_(text) {}

  // So many digits.
  bool Number(std::size_t digits, int& number) {
    if (rest_.size() < digits) return false;
    const char* end = rest_.data() + digits;
    const auto [stop, error] = std::from_chars(rest_.data(), end, number);
    if (error != std::errc() || stop != end || rest_.front() == '-') return false;
    rest_.remove_prefix(digits);
    return true;
  }
  bool Mark(char mark) {
    if (rest_.empty() || rest_.front() != mark) return false;
    rest_.remove_prefix(1);
    return true;
  }
  [[nodiscard]] bool IsAtEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

bool TakeDate(Taker& taker, std::tm& parts) {
  int year = 0;
  int month = 0;
  if (!taker.Number(4, year) || !taker.Mark('-') || !taker.Number(2, month) || !taker.Mark('-') ||
      !taker.Number(2, parts.tm_mday)) {
    return false;
  }
  parts.tm_year = year - 1900;
  parts.tm_mon = month - 1;
  return std::chrono::year_month_day(std::chrono::year(year),
                                     std::chrono::month(static_cast<unsigned>(month)),
                                     std::chrono::day(static_cast<unsigned>(parts.tm_mday)))
      .ok();
}

bool TakeHoursAndMinutes(Taker& taker, std::tm& parts) {
  return taker.Number(2, parts.tm_hour) && parts.tm_hour < 24 && taker.Mark(':') &&
         taker.Number(2, parts.tm_min) && parts.tm_min < 60;
}

// Seconds with or without thousandths.
bool TakeSeconds(Taker& taker, std::tm& parts, int& thousandths) {
  if (!taker.Number(2, parts.tm_sec) || parts.tm_sec > 60) return false;
  return !taker.Mark('.') || taker.Number(3, thousandths);
}

// Its distance from Greenwich in seconds.
bool TakeZone(Taker& taker, int& distance) {
  if (taker.Mark('Z')) return true;
  const bool isEast = taker.Mark('+');
  if (!isEast && !taker.Mark('-')) return false;
  std::tm zone{};
  if (!TakeHoursAndMinutes(taker, zone)) return false;
  distance = (zone.tm_hour * 60 + zone.tm_min) * 60 * (isEast ? 1 : -1);
  return true;
}

// The parts as if they were those of Greenwich.
LogTime OfGreenwich(const std::tm& parts) {
  const std::chrono::sys_days day = std::chrono::year(parts.tm_year + 1900) /
                                    std::chrono::month(static_cast<unsigned>(parts.tm_mon) + 1) /
                                    std::chrono::day(static_cast<unsigned>(parts.tm_mday));
  return day + std::chrono::hours(parts.tm_hour) + std::chrono::minutes(parts.tm_min) +
         seconds(parts.tm_sec);
}

LogTime OfLocal(const std::tm& parts) {
  return LogTime(seconds(MomentOfLocal(parts)));
}

}  // namespace

std::string LogTimeText(LogTime time) {
  const auto whole = std::chrono::floor<seconds>(time);
  const std::tm parts = LocalParts(static_cast<std::time_t>(whole.time_since_epoch().count()));
  // How far the local time is from Greenwich.
  const auto distance =
      std::chrono::duration_cast<std::chrono::minutes>(OfGreenwich(parts) - whole);
  const long long minutes = std::abs(distance.count());
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%03d%c%02lld:%02lld",
                parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min,
                parts.tm_sec, static_cast<int>((time - whole).count()),
                distance.count() < 0 ? '-' : '+', minutes / 60, minutes % 60);
  return text.data();
}

std::optional<LogTime> ParseLogTime(std::string_view text) {
  Taker taker(text);
  std::tm parts{};
  int thousandths = 0;
  int distance = 0;
  if (!TakeDate(taker, parts) || !taker.Mark('T') || !TakeHoursAndMinutes(taker, parts) ||
      !taker.Mark(':') || !TakeSeconds(taker, parts, thousandths) || !TakeZone(taker, distance) ||
      !taker.IsAtEnd()) {
    return std::nullopt;
  }
  return OfGreenwich(parts) - seconds(distance) + milliseconds(thousandths);
}

std::optional<TimeSpan> ParseTimeSpan(std::string_view text) {
  Taker taker(text);
  std::tm first{};
  if (!TakeDate(taker, first)) return std::nullopt;
  std::tm next = first;
  if (taker.IsAtEnd()) {
    ++next.tm_mday;
    return TimeSpan{OfLocal(first), OfLocal(next)};
  }
  if ((!taker.Mark(' ') && !taker.Mark('T')) || !TakeHoursAndMinutes(taker, first)) {
    return std::nullopt;
  }
  if (taker.IsAtEnd()) return TimeSpan{OfLocal(first), OfLocal(first) + seconds(60)};
  int thousandths = 0;
  if (!taker.Mark(':') || !TakeSeconds(taker, first, thousandths) || !taker.IsAtEnd()) {
    return std::nullopt;
  }
  return TimeSpan{OfLocal(first), OfLocal(first) + seconds(1)};
}

}  // namespace td
