#include <gtest/gtest.h>

#include <QApplication>

#include "virtual_display.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  const td::VirtualDisplay display;
  qputenv("LC_ALL", DESIGNER_LOCALE);
  qputenv("CUPS_SERVER", "/nonexistent/cups.sock");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
