// A machine without a display and without a printer.
#include <gtest/gtest.h>
#include <stdlib.h>

int main(int argc, char** argv) {
  // Set before anything asks the printing system, which reads this once.
  setenv("CUPS_SERVER", "/nonexistent/cups.sock", 1);
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
