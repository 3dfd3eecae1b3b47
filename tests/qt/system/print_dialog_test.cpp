// The system's printer dialog, with real queues behind it and a real display in front.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
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
    QGuiApplication::setApplicationDisplayName(QString::fromStdString(title_));
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
    bool wasAsked = false;
    AnswerDialog(button, [&](QPrintDialog& dialog) {
      wasAsked = true;
      EXPECT_EQ(dialog.printer()->printerName(), "QbTd-PDF");
      change(dialog);
    });
    document_.PrintDoc(true);
    EXPECT_TRUE(wasAsked);
  }
  static void AnswerDialog(QDialogButtonBox::StandardButton button,
                           std::function<void(QPrintDialog&)> change) {
    constexpr int kUntilItIsShown = 500;  // milliseconds
    QTimer::singleShot(kUntilItIsShown, qApp, [button, change = std::move(change)] {
      auto* dialog = dynamic_cast<QPrintDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      change(*dialog);
      dialog->findChild<QDialogButtonBox*>()->button(button)->click();
    });
  }
  [[nodiscard]] std::vector<int> Jobs() const { return JobsTitled(title_); }

  FrameSettings settings_;
  MessageBoxes messages_{false};
  DesktopHost host_{settings_, messages_};
  PageDocument document_{host_};
  const std::string title_ =
      UniqueTitle(testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(PrintDialog, PrintsOnTheExactSheetWhenItIsConfirmed) {
  DocumentOutcome outcome;
  settings_.outcome = &outcome;
  PrintAndAnswer(QDialogButtonBox::Ok);
  ASSERT_EQ(Jobs().size(), 1U);
  EXPECT_EQ(outcome.jobs, Jobs());
  EXPECT_EQ(outcome.printer, "QbTd-PDF");
  const std::vector<Sheet> sheets = SheetsOf(ResultOf(Jobs()[0]));
  ASSERT_EQ(sheets.size(), 2U);
  EXPECT_NEAR(sheets[0].width, 241, kTolerance);
  EXPECT_NEAR(sheets[0].height, 140, kTolerance);
}

TEST_F(PrintDialog, PrintsNothingAndFailsNothingWhenItIsCancelled) {
  DocumentOutcome outcome;
  settings_.outcome = &outcome;
  PrintAndAnswer(QDialogButtonBox::Cancel);
  EXPECT_TRUE(Jobs().empty());
  EXPECT_EQ(outcome.delivery, Delivery::kCancelled);
  EXPECT_EQ(outcome.pages, 2);
}

// Opens the page setup, and confirms it after `change` of the list of printers.
void SetPageUp(PageDocument& document, std::function<void(QComboBox&)> change) {
  constexpr int kUntilItIsShown = 200;  // milliseconds
  QTimer::singleShot(kUntilItIsShown, qApp, [&] {
    auto* dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    change(*dialog->findChildren<QComboBox*>()[0]);
    dialog->findChildren<QPushButton*>()[0]->click();
  });
  EXPECT_NE(document.ShowPageSetup(1), 0);
}

TEST_F(PrintDialog, AChoiceInThePageSetupWinsOverThePrinterOfTheProgram) {
  settings_.printer = "QbTd-Fixed";
  DesktopHost host(settings_, messages_);
  PageDocument document(host);
  document.PutDevice("QbTd-PDF");
  document.StartDoc();
  document.EndDoc();

  const auto printerInDialog = [&] {
    std::string printer;
    AnswerDialog(QDialogButtonBox::Cancel, [&](QPrintDialog& dialog) {
      printer = dialog.printer()->printerName().toStdString();
    });
    document.PrintDoc(true);
    return printer;
  };
  SetPageUp(document, [](QComboBox& printers) {
    EXPECT_EQ(printers.currentText(), "QbTd-Fixed") << "where the document would go";
  });
  EXPECT_EQ(document.Device(), "QbTd-PDF") << "nobody has chosen another";
  EXPECT_EQ(printerInDialog(), "QbTd-Fixed");
  SetPageUp(document, [](QComboBox& printers) { printers.setCurrentText("QbTd-PDF"); });
  EXPECT_EQ(document.Device(), "QbTd-PDF");
  EXPECT_EQ(printerInDialog(), "QbTd-PDF");
}

TEST_F(PrintDialog, PrintsTheCopiesThatTheUserWants) {
  PrintAndAnswer(QDialogButtonBox::Ok,
                 [](QPrintDialog& dialog) { dialog.findChild<QSpinBox*>("copies")->setValue(2); });
  ASSERT_EQ(Jobs().size(), 1U);
  EXPECT_EQ(SheetsOf(ResultOf(Jobs()[0])).size(), 4U);
}

}  // namespace
}  // namespace td
