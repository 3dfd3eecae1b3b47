// Who prints, for the log.
#pragma once

#include <filesystem>
#include <string>

namespace td {

// The name of the user that the process runs for; a number if the system tells no name.
[[nodiscard]] std::string UserName();

// The name of the machine in its network; empty if it has none.
[[nodiscard]] std::string MachineName();

// The program's name, as its windows bear it.
[[nodiscard]] std::string NameOfProgram();

// The file of the environment variable QBTDPRINTER_LOG_FILE; empty without it, and in a process
// that runs with more rights than who started it has.
[[nodiscard]] std::filesystem::path LogFileOfEnvironment();

}  // namespace td
