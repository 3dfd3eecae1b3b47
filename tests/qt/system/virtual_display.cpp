#include "virtual_display.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace td {

VirtualDisplay::VirtualDisplay() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) std::abort();
  server_ = fork();
  if (server_ == 0) {
    close(ends[0]);
    prctl(PR_SET_PDEATHSIG, SIGTERM);  // a killed test takes its display along
    const std::string number = std::to_string(ends[1]);
    // By itself the display starts afresh when its last client leaves, and turns away who comes
    // meanwhile: -noreset.
    execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "2400x1800x24",
           "-nolisten", "tcp", "-noreset", nullptr);
    _exit(127);
  }
  close(ends[1]);
  // The server writes its number when it is ready.
  std::string display = ":";
  for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';) display += c;
  close(ends[0]);
  if (display == ":") {
    std::fputs("Xvfb does not start\n", stderr);
    std::exit(1);
  }
  setenv("DISPLAY", display.c_str(), 1);
  setenv("QT_QPA_PLATFORM", "xcb", 1);
  unsetenv("WAYLAND_DISPLAY");
}

VirtualDisplay::~VirtualDisplay() {
  kill(server_, SIGTERM);
  waitpid(server_, nullptr, 0);
}

}  // namespace td
