#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_SCALE_FACTOR", QByteArray::number(PERCENT / 100.0));
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANGUAGE"}) qunsetenv(name);
  qputenv("LANG", LOCALE);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
