#include <gtest/gtest.h>

#include <QApplication>

#include "print_queue.h"
#include "virtual_display.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  testing::AddGlobalTestEnvironment(new td::PrintQueues);
  const td::VirtualDisplay display;
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
