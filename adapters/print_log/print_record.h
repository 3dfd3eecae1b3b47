// What the print log keeps of a print, and how it stands in a line.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace td {

// A message that was shown, and where the print stood: what isn't known is empty, or 0.
struct LoggedMessage {
  std::string text;
  std::string place;  // in words, as standard error has it

  bool operator==(const LoggedMessage&) const = default;
};

using LogTime = std::chrono::sys_time<std::chrono::milliseconds>;

// Texts are UTF-8.
struct PrintRecord {
  LogTime time;         // when the print was over
  std::string user;     // of the system
  std::string machine;  // its name
  std::string address;  // by which the machine's paper rows are known
  std::string program;  // whose print it was
  std::int16_t billType = 0;
  std::string format;
  std::vector<std::string> bills;  // their numbers, in the order of the document
  int pages = 0;
  std::string printer;    // empty: none was asked
  std::vector<int> jobs;  // their numbers in the printing system
  std::string file;       // that was written in a printer's place; empty: none, or not known
  std::string result;     // one of log_results
  std::string reason;     // of a refusal
  std::vector<LoggedMessage> messages;
  std::vector<std::string> complaints;  // what the document goes on without
  double seconds = 0;                   // that the print took

  bool operator==(const PrintRecord&) const = default;
};

namespace log_results {

inline constexpr std::string_view kPrinted = "printed";         // a printer has it whole
inline constexpr std::string_view kWritten = "written";         // a file or the program has it
inline constexpr std::string_view kCancelled = "cancelled";     // in the printer dialog
inline constexpr std::string_view kRefused = "refused";         // not handed over, or not whole
inline constexpr std::string_view kNotPrinted = "not printed";  // the run didn't get that far
inline constexpr std::string_view kPreviewed = "previewed";     // shown, and not printed

}  // namespace log_results

// The record as one line of JSON, its end included. Its members are those of the record in their
// order; what is empty or 0 is left out, but for the first ones and the result.
[[nodiscard]] std::string LineOf(const PrintRecord& record);

// The record of a line, with or without its end; nothing if the line is none. Members that it lacks
// are empty, those that nobody knows are passed over.
[[nodiscard]] std::optional<PrintRecord> RecordOf(std::string_view line);

}  // namespace td
