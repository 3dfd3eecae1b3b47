// A machine without a desktop that a user sees; CTest sees to it that there is no printer.
#include <gtest/gtest.h>

#include "windows/api/windows_api.h"

int main(int argc, char** argv) {
  // Windows would wait for somebody to close them.
  const HWINSTA hidden = CreateWindowStationW(nullptr, 0, GENERIC_ALL, nullptr);
  if (hidden == nullptr || SetProcessWindowStation(hidden) == FALSE) return 1;
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
