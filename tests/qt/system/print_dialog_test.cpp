// The system's printer dialog, with real queues behind it and a real display in front.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

#include "page_document/page_document.h"
#include "print_queue.h"
#include "qt/system/desktop_host.h"
#include "qt/system/message_boxes.h"
#include "test_tools.h"

namespace td {
namespace {

class PrintDialog : public testing::Test {
 protected:
  void SetUp() override {
    title_ = QString("qbtd-%1-%2")
                 .arg(testing::UnitTest::GetInstance()->current_test_info()->name())
                 .arg(QCoreApplication::applicationPid());
    QGuiApplication::setApplicationDisplayName(title_);
    document_.PutDevice("QbTd-PDF");
    document_.PutPaperWidth(static_cast<float>(241 * kTwipsPerMillimetre));
    document_.PutPaperHeight(static_cast<float>(140 * kTwipsPerMillimetre));
    document_.StartDoc();
    document_.NewPage();
    document_.EndDoc();
  }

  // Prints, and answers the dialog with a button after `change`.
  void PrintAndAnswer(
      QDialogButtonBox::StandardButton button,
      std::function<void(QPrintDialog&)> change = [](QPrintDialog&) {}) {
    constexpr int kUntilItIsShown = 500;  // milliseconds
    bool wasAsked = false;
    QTimer::singleShot(kUntilItIsShown, qApp, [&] {
      auto* dialog = dynamic_cast<QPrintDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      wasAsked = true;
      EXPECT_EQ(dialog->printer()->printerName(), "QbTd-PDF");
      change(*dialog);
      dialog->findChild<QDialogButtonBox*>()->button(button)->click();
    });
    document_.PrintDoc(true);
    EXPECT_TRUE(wasAsked);
  }
  [[nodiscard]] std::vector<int> Jobs() const { return JobsTitled(title_.toStdString()); }

  FrameSettings settings_;
  MessageBoxes messages_{false};
  DesktopHost host_{settings_, messages_};
  PageDocument document_{host_};
  QString title_;
};

TEST_F(PrintDialog, PrintsOnTheExactSheetWhenItIsConfirmed) {
  PrintAndAnswer(QDialogButtonBox::Ok);
  ASSERT_EQ(Jobs().size(), 1U);
  const std::vector<Sheet> sheets = SheetsOf(ResultOf(Jobs()[0]));
  ASSERT_EQ(sheets.size(), 2U);
  EXPECT_NEAR(sheets[0].width, 241, kTolerance);
  EXPECT_NEAR(sheets[0].height, 140, kTolerance);
}

TEST_F(PrintDialog, PrintsNothingAndFailsNothingWhenItIsCancelled) {
  PrintAndAnswer(QDialogButtonBox::Cancel);
  EXPECT_TRUE(Jobs().empty());
}

TEST_F(PrintDialog, PrintsTheCopiesThatTheUserWants) {
  PrintAndAnswer(QDialogButtonBox::Ok,
                 [](QPrintDialog& dialog) { dialog.findChild<QSpinBox*>("copies")->setValue(2); });
  ASSERT_EQ(Jobs().size(), 1U);
  EXPECT_EQ(SheetsOf(ResultOf(Jobs()[0])).size(), 4U);
}

}  // namespace
}  // namespace td
