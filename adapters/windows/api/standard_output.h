// The standard output and the standard error of the process.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "windows/api/windows_api.h"

namespace td {

enum class StandardStream : std::uint8_t { kOutput, kError };

// Writes UTF-8. A console shows it whatever its code page is; files and pipes get the bytes as they
// are. What comes in several parts may be split within a character.
class StandardStreamWriter {
 public:
  explicit StandardStreamWriter(StandardStream stream);
  // To a console's screen or a file that somebody else owns.
  explicit StandardStreamWriter(HANDLE target);

  // False, with the system's last error, when it can't be written.
  bool Write(std::string_view utf8);

 private:
  bool WriteToConsole(std::string_view utf8);
  bool WriteAsItIs(std::string_view bytes);

  HANDLE target_;
  bool isConsole_;
  std::string pending_;  // the beginning of a character whose end hasn't come
};

// Whether the stream is a console that knows the control sequences of terminals; they are turned
// on.
[[nodiscard]] bool CanWipeLines(StandardStream stream);

}  // namespace td
