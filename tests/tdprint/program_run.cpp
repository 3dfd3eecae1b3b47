#include "program_run.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace td {
namespace {

std::string Content(const std::filesystem::path& path) {
  std::stringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

void Redirect(int descriptor, const char* path, int flags) {
  const int file = open(path, flags, 0600);
  if (file < 0 || dup2(file, descriptor) < 0) _exit(126);
}

}  // namespace

ProgramRun::ProgramRun(const std::vector<std::string>& command,
                       const std::filesystem::path& scratch)
    : out_(scratch / "standard-output"), err_(scratch / "standard-error") {
  std::vector<char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);

  process_ = fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ > 0) return;
  Redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
  Redirect(STDOUT_FILENO, out_.c_str(), O_WRONLY | O_CREAT | O_TRUNC);
  Redirect(STDERR_FILENO, err_.c_str(), O_WRONLY | O_CREAT | O_TRUNC);
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
  setenv("LC_ALL", "C.UTF-8", 1);
  setenv("CUPS_SERVER", (scratch / "no-printers").c_str(), 1);
  setenv("QBTDPRINTER_STATE_DIR", (scratch / "state").c_str(), 1);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

ProgramResult ProgramRun::Finish() {
  int state = 0;
  if (waitpid(process_, &state, 0) != process_) throw std::runtime_error("no such process");
  ProgramResult result;
  result.status = WIFEXITED(state) ? WEXITSTATUS(state) : 128 + WTERMSIG(state);
  result.out = Content(out_);
  result.err = Content(err_);
  return result;
}

}  // namespace td
