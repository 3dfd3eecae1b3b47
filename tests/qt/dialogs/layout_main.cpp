#include <gtest/gtest.h>

#include <QApplication>

#include "virtual_display.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  const td::VirtualDisplay display;
  qputenv("QT_SCALE_FACTOR", QByteArray::number(PERCENT / 100.0));
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
