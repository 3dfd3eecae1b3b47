// Runs a program as a person at a shell does.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace td {

struct ProgramResult {
  int status = -1;  // the exit status; 128 and more: ended by a signal
  std::string out;
  std::string err;
};

// Begins at once; Finish waits for the end.
class ProgramRun {
 public:
  // `scratch` receives what the program writes. The program has no display, no printer and no
  // standard input, and speaks English.
  ProgramRun(const std::vector<std::string>& command, const std::filesystem::path& scratch);
  ProgramResult Finish();

 private:
  std::filesystem::path out_;
  std::filesystem::path err_;
  pid_t process_ = -1;
};

}  // namespace td
