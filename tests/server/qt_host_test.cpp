// The module in a program that has a Qt application of its own, on a display.
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "server_fixture.h"
#include "test_rows.h"
#include "virtual_display.h"

namespace td {
namespace {

class InAQtHost : public ServerTest {
 protected:
  // Confirms each message box, such as the one that says that there is no printer.
  InAQtHost() {
    QObject::connect(&boxes_, &QTimer::timeout, &boxes_, [] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box != nullptr && box->isVisible()) box->buttons().first()->click();
    });
    boxes_.start(kPollInterval);
  }

  // `use` comes once, as soon as a window of the module is shown; then the window is closed.
  void WhenShown(std::function<void(QWidget&)> use) {
    shown_.clear();
    windows_.disconnect();
    QObject::connect(&windows_, &QTimer::timeout, &windows_, [this, use = std::move(use)] {
      QWidget* window = QApplication::activeModalWidget();
      if (window == nullptr || !IsReady(*window)) return;
      windows_.stop();
      shown_ = window->windowTitle().toStdString();
      use(*window);
      window->close();
    });
    windows_.start(kPollInterval);
  }
  Outcome Preview(TdDispatch* rows) {
    return Call(printer_.Get(), "DoPrint",
                {TdFlagVariant(0), TdTextVariant(connection_.c_str()), TdIntegerVariant(21),
                 TdFlagVariant(0), TdFlagVariant(0), TdDispatchVariant(rows)});
  }

  std::string shown_;  // title of the window that was used
  Reference<TdDispatch> printer_ = NewPrinter();

 private:
  static constexpr int kPollInterval = 20;  // milliseconds

  // A preview runs its print when it is shown, and then tells the page.
  static bool IsReady(QWidget& window) {
    if (!window.isVisible() || qobject_cast<QMessageBox*>(&window) != nullptr) return false;
    const auto* pageText = window.findChild<QLineEdit*>("txtPageNo");
    return pageText == nullptr || pageText->text().startsWith(QStringLiteral("第1页"));
  }

  QTimer boxes_;
  QTimer windows_;
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
