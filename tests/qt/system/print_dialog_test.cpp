// The system's printer dialog, with real queues behind it and a real display in front.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <cmath>

#include "../wheel.h"
#include "page_document/page_document.h"
#include "print_queue.h"
#include "qt/system/desktop_host.h"
#include "qt/system/message_boxes.h"
#include "test_tools.h"

namespace td {
namespace {

constexpr double kCentimetre = 10 * kTwipsPerMillimetre;
constexpr double kLineLeft = 2 * kCentimetre;
constexpr double kLineTop = 5 * kCentimetre;

class PrintDialog : public testing::Test {
 protected:
  void SetUp() override {
    QGuiApplication::setApplicationDisplayName(QString::fromStdString(title_));
    document_.PutDevice("QbTd-PDF");
    document_.PutPaperWidth(static_cast<float>(241 * kTwipsPerMillimetre));
    document_.PutPaperHeight(static_cast<float>(140 * kTwipsPerMillimetre));
    MakeDocument(2);
  }

  // Page n bears a line of n centimetres: what a queue makes of a text can't be read.
  void MakeDocument(int pages) {
    document_.StartDoc();
    for (int page = 1; page <= pages; ++page) {
      if (page > 1) document_.NewPage();
      document_.DrawLine(kLineLeft, kLineTop, kLineLeft + page * kCentimetre, kLineTop);
    }
    document_.EndDoc();
  }

  // The numbers on the pages of the only job, in their order.
  [[nodiscard]] std::string PrintedPages() const {
    EXPECT_EQ(Jobs().size(), 1U);
    if (Jobs().size() != 1) return {};
    const std::string pdf = ResultOf(Jobs()[0]);
    std::string numbers;
    for (int page = 1; page <= static_cast<int>(SheetsOf(pdf).size()); ++page) {
      constexpr double kDotsPerInch = 100;
      const QRectF line =
          InkIn(ImageOf(pdf, kDotsPerInch, page), kDotsPerInch, QRectF(0, 0, 140, 140));
      numbers += std::to_string(std::lround(line.width() / 10));
    }
    return numbers;
  }

  // The wanted set of a list of three: all pages, odd ones, even ones.
  static void ChooseSet(QPrintDialog& dialog, int set) {
    dialog.findChild<QComboBox*>("pageSetCombo")->setCurrentIndex(set);
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
  MessageBoxes messages_{MessageMode::kStandardError};
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

constexpr int kOdd = 1;
constexpr int kEven = 2;

TEST_F(PrintDialog, TheRangeIsPresetToTheWholeDocument) {
  MakeDocument(5);
  PrintAndAnswer(QDialogButtonBox::Ok, [](QPrintDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QSpinBox*>("from")->value(), 1);
    EXPECT_EQ(dialog.findChild<QSpinBox*>("to")->value(), 5);
    dialog.findChild<QAbstractButton*>("printRange")->click();
  });
  EXPECT_EQ(PrintedPages(), "12345");
}

TEST_F(PrintDialog, PrintsTheRangeThatTheUserWants) {
  MakeDocument(5);
  PrintAndAnswer(QDialogButtonBox::Ok, [](QPrintDialog& dialog) {
    dialog.findChild<QAbstractButton*>("printRange")->click();
    dialog.findChild<QSpinBox*>("from")->setValue(2);
    dialog.findChild<QSpinBox*>("to")->setValue(4);
  });
  EXPECT_EQ(PrintedPages(), "234");
}

TEST_F(PrintDialog, PrintsThePagesThatTheUserLists) {
  MakeDocument(6);
  PrintAndAnswer(QDialogButtonBox::Ok, [](QPrintDialog& dialog) {
    dialog.findChild<QAbstractButton*>("pagesRadioButton")->click();
    dialog.findChild<QLineEdit*>("pagesLineEdit")->setText("2-3,5");
  });
  EXPECT_EQ(PrintedPages(), "235");
}

TEST_F(PrintDialog, PrintsOddAndEvenPagesForDuplexByHand) {
  MakeDocument(5);
  PrintAndAnswer(QDialogButtonBox::Ok, [](QPrintDialog& dialog) { ChooseSet(dialog, kOdd); });
  EXPECT_EQ(PrintedPages(), "135");
}

TEST_F(PrintDialog, TheOtherSideHasTheEvenPages) {
  MakeDocument(5);
  PrintAndAnswer(QDialogButtonBox::Ok, [](QPrintDialog& dialog) { ChooseSet(dialog, kEven); });
  EXPECT_EQ(PrintedPages(), "24");
}

TEST_F(PrintDialog, OddPagesOfARangeGoByTheirNumbersToo) {
  MakeDocument(6);
  PrintAndAnswer(QDialogButtonBox::Ok, [](QPrintDialog& dialog) {
    dialog.findChild<QAbstractButton*>("pagesRadioButton")->click();
    dialog.findChild<QLineEdit*>("pagesLineEdit")->setText("2-3,5");
    ChooseSet(dialog, kOdd);
  });
  EXPECT_EQ(PrintedPages(), "35");
}

TEST_F(PrintDialog, SaysSoWhereNoPageIsLeft) {
  MakeDocument(1);
  AnswerDialog(QDialogButtonBox::Ok, [](QPrintDialog& dialog) { ChooseSet(dialog, kEven); });
  EXPECT_EQ(NumberOf([this] { document_.PrintDoc(true); }), kInvalidCall);
  EXPECT_TRUE(Jobs().empty());
}

TEST_F(PrintDialog, CollatedCopiesComeOneAfterTheOther) {
  PrintAndAnswer(QDialogButtonBox::Ok, [](QPrintDialog& dialog) {
    dialog.findChild<QSpinBox*>("copies")->setValue(2);
    dialog.findChild<QAbstractButton*>("collate")->setChecked(true);
  });
  EXPECT_EQ(PrintedPages(), "1212");
}

TEST_F(PrintDialog, CopiesThatAreNotCollatedComePageByPage) {
  PrintAndAnswer(QDialogButtonBox::Ok, [](QPrintDialog& dialog) {
    dialog.findChild<QSpinBox*>("copies")->setValue(2);
    dialog.findChild<QAbstractButton*>("collate")->setChecked(false);
  });
  EXPECT_EQ(PrintedPages(), "1122");
}

TEST_F(PrintDialog, TheLastPageComesFirstIfTheUserWantsIt) {
  MakeDocument(3);
  PrintAndAnswer(QDialogButtonBox::Ok, [](QPrintDialog& dialog) {
    dialog.findChild<QAbstractButton*>("reverse")->setChecked(true);
  });
  EXPECT_EQ(PrintedPages(), "321");
}

// Chooses an entry of whichever list of the printer's own settings has it.
void ChooseSetting(QPrintDialog& dialog, const QString& entry) {
  constexpr int kUntilItIsShown = 300;  // milliseconds
  QTimer::singleShot(kUntilItIsShown, qApp, [&] {
    auto* settings = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(settings, nullptr);
    for (QComboBox* list : settings->findChildren<QComboBox*>()) {
      if (list->findText(entry) >= 0) list->setCurrentText(entry);
    }
    settings->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
  });
  dialog.findChild<QPushButton*>("properties")->click();
}

TEST_F(PrintDialog, TrayAndDuplexHoldAndPlacingIsRefused) {
  document_.PutDevice("QbTd-Office");
  MakeDocument(4);
  AnswerDialog(QDialogButtonBox::Ok, [](QPrintDialog& dialog) {
    dialog.findChild<QAbstractButton*>("duplexShort")->click();
    ChooseSetting(dialog, "Tray 2");
    ChooseSetting(dialog, "4 (2x2)");
  });
  document_.PrintDoc(true);
  ASSERT_EQ(Jobs().size(), 1U);
  EXPECT_EQ(AttributeOf(Jobs()[0], "sides"), "two-sided-short-edge");
  EXPECT_EQ(AttributeOf(Jobs()[0], "InputSlot"), "Tray2");
  EXPECT_EQ(PrintedPages(), "1234") << "each on a sheet of its own";
}

TEST_F(PrintDialog, TheWheelChangesNoFieldThatHasNoFocus) {
  PrintAndAnswer(QDialogButtonBox::Cancel, [](QPrintDialog& dialog) {
    constexpr int kUntilItIsShown = 300;  // milliseconds
    auto& copies = *dialog.findChild<QSpinBox*>("copies");
    copies.setValue(5);
    TurnWheelOver(copies);
    EXPECT_EQ(copies.value(), 5);
    EXPECT_NE(copies.focusPolicy(), Qt::WheelFocus);
    QTimer::singleShot(kUntilItIsShown, qApp, [] {
      auto* settings = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(settings, nullptr);
      auto& sheets = *settings->findChild<QComboBox*>("pageSizeCombo");
      const QString sheet = sheets.currentText();
      TurnWheelOver(sheets);
      EXPECT_EQ(sheets.currentText(), sheet) << "in the dialogs that it opens, too";
      settings->reject();
    });
    dialog.findChild<QPushButton*>("properties")->click();
  });
}

TEST_F(PrintDialog, PrintsTheCopiesThatTheUserWants) {
  PrintAndAnswer(QDialogButtonBox::Ok,
                 [](QPrintDialog& dialog) { dialog.findChild<QSpinBox*>("copies")->setValue(2); });
  ASSERT_EQ(Jobs().size(), 1U);
  EXPECT_EQ(SheetsOf(ResultOf(Jobs()[0])).size(), 4U);
}

}  // namespace
}  // namespace td
