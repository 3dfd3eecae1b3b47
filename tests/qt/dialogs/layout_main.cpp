#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_SCALE_FACTOR", QByteArray::number(PERCENT / 100.0));
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
