// Times in the print log, and in questions to it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "print_log/print_record.h"

namespace td {

// "2024-03-01T09:30:00.125+08:00", in the machine's local time.
[[nodiscard]] std::string LogTimeText(LogTime time);

// The time of such a text, whatever its distance from Greenwich; nothing if it is none.
[[nodiscard]] std::optional<LogTime> ParseLogTime(std::string_view text);

// The first moment and the one behind the last of a day ("2024-03-01") or a minute or a second of
// it ("2024-03-01 09:30", "2024-03-01T09:30:15"), in local time.
struct TimeSpan {
  LogTime begin;
  LogTime end;
};

// Nothing if the text is no such time.
[[nodiscard]] std::optional<TimeSpan> ParseTimeSpan(std::string_view text);

}  // namespace td
