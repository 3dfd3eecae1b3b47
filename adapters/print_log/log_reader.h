// Looks prints up in a print log.
#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "print_log/print_record.h"

namespace td {

// Which prints are looked for: those that meet all that is given. Texts are compared exactly; an
// empty one asks for nothing.
struct LogQuestion {
  std::string bill;  // one of the print's bills
  std::optional<std::int16_t> billType;
  std::string format;
  std::string printer;
  std::string user;
  std::optional<LogTime> since;
  std::optional<LogTime> before;
};

[[nodiscard]] bool Answers(const PrintRecord& record, const LogQuestion& question);

// Hands the records that answer the question over in the order of the file, each with its line
// without the end. Returns the numbers, from 1, of the lines that are no records; empty ones aren't
// told.
std::vector<std::size_t> ReadLog(
    std::istream& log, const LogQuestion& question,
    const std::function<void(const PrintRecord& record, const std::string& line)>& take);

}  // namespace td
