// The module in a program that has a Qt application of its own, on a display.
#include <QApplication>
#include <QTimer>
#include <QToolBar>
#include <QWidget>
#include <functional>

#include "server_fixture.h"
#include "test_rows.h"
#include "virtual_display.h"

namespace td {
namespace {

class InAQtHost : public ServerTest {
 protected:
  // `use` comes once, as soon as a window of the module is shown; then the window is closed.
  void WhenShown(std::function<void(QWidget&)> use) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, use = std::move(use)] {
      QWidget* window = QApplication::activeModalWidget();
      if (window == nullptr || !window->isVisible()) return;
      timer_.stop();
      shown_ = window->windowTitle().toStdString();
      use(*window);
      window->close();
    });
    timer_.start(20);
  }
  Outcome Preview(TdDispatch* rows) {
    return Call(printer_.Get(), "DoPrint",
                {TdFlagVariant(0), TdTextVariant(connection_.c_str()), TdIntegerVariant(21),
                 TdFlagVariant(0), TdFlagVariant(0), TdDispatchVariant(rows)});
  }

  QTimer timer_;
  std::string shown_;
  Reference<TdDispatch> printer_ = NewPrinter();
};

TEST_F(InAQtHost, KeepsTheHostsApplicationAndItsSettings) {
  QApplication* const application = qApp;
  QApplication::setQuitOnLastWindowClosed(true);
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_EQ(qApp, application);
  EXPECT_TRUE(QApplication::quitOnLastWindowClosed());
  printer_ = {};
  EXPECT_TRUE(module_->CanUnload());
  EXPECT_EQ(qApp, application);
}

TEST_F(InAQtHost, APreviewThatWasOnlyLookedAtIsNotPrinted) {
  WhenShown([](QWidget&) {});
  ExpectOk(Preview(TestRows::Make(NamedRows({"大米"})).Get()));
  EXPECT_NE(shown_, "");
  EXPECT_FALSE(PrintOk(printer_.Get()));
  EXPECT_TRUE(HasPrinted("大米")) << "the run itself took place";
}

TEST_F(InAQtHost, ACallWhileAPreviewIsOpenIsRefused) {
  Outcome inner;
  const auto rows = TestRows::Make(NamedRows({"大米"}));
  WhenShown([&](QWidget&) { inner = Print(printer_.Get(), rows.Get()); });
  ExpectOk(Preview(rows.Get()));
  EXPECT_EQ(inner.result, TD_EXCEPTION);
  EXPECT_NE(inner.description.find("尚未结束"), std::string::npos);
  ExpectOk(Print(printer_.Get(), rows.Get()));
}

TEST_F(InAQtHost, TheSettingsLeaveThePrintDataAndPrintOkAlone) {
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  const int alive = TestRows::Alive();
  WhenShown([](QWidget&) {});
  const auto settings = module_->Create(kTdSettingsClass);
  ExpectOk(
      Call(settings.Get(), "TDSet", {TdTextVariant(connection_.c_str()), TdIntegerVariant(21)}));
  EXPECT_NE(shown_, "");
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_EQ(TestRows::Alive(), alive);
}

TEST_F(InAQtHost, TenPreviewsLeaveNoWindow) {
  for (int round = 0; round < 10; ++round) {
    WhenShown([](QWidget&) {});
    ExpectOk(Preview(TestRows::Make(NamedRows({"大米"})).Get()));
    timer_.disconnect();
  }
  EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  setenv("CUPS_SERVER", "/nonexistent/cups.sock", 1);
  const td::VirtualDisplay display;
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
