#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

#include "standard_streams.h"

namespace td {

// What is closed is opened the wrong way round: nothing else, such as the database, gets its
// number, and who reads or writes there is told that it can't be.
void PrepareStandardStreams() {
  for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(number, F_GETFD) >= 0) continue;
    if (open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0) return;
  }
}

bool StandardInputIsTerminal() {
  return isatty(STDIN_FILENO) == 1;
}

bool StandardOutputIsTerminal() {
  return isatty(STDOUT_FILENO) == 1;
}

bool StandardErrorIsTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

}  // namespace td
