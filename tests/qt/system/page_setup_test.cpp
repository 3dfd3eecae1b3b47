// The page-setup dialog on a real display.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "qt/preview/page_setup_dialog.h"
#include "qt/system/desktop_host.h"
#include "qt/system/message_boxes.h"

namespace td {
namespace {

// A machine with two printers, the first of them its default.
class TwoPrinters : public DesktopHost {
 public:
  using DesktopHost::DesktopHost;

  int DeviceCount() override { return 2; }
  std::string DeviceName(int index) override { return index == 0 ? "前台" : "仓库"; }
  std::string DefaultDevice() override { return "前台"; }
  bool HasDevice(const std::string& name) override { return name == "前台" || name == "仓库"; }
};

class PageSetup : public testing::Test {
 protected:
  PageSetup() { document_.PutMarginLeft(0); }

  void Open() { Open(document_.Device()); }
  void Open(const std::string& printer) {
    dialog_ = std::make_unique<PageSetupDialog>(document_, printer, ownSheets_, nullptr);
  }
  QComboBox& Printers() { return *dialog_->findChildren<QComboBox*>()[0]; }
  QComboBox& Papers() { return *dialog_->findChildren<QComboBox*>()[1]; }
  // In their order: width, height, left, top, right, bottom.
  QDoubleSpinBox& Length(int index) { return *dialog_->findChildren<QDoubleSpinBox*>()[index]; }
  QPushButton& Confirm() { return *dialog_->findChildren<QPushButton*>()[0]; }
  void Choose(std::int32_t paper) { Papers().setCurrentIndex(Papers().findData(paper)); }
  std::string Objection() {
    for (const QLabel* label : dialog_->findChildren<QLabel*>()) {
      if (label->wordWrap()) return label->text().toStdString();
    }
    return "no label for it";
  }

  FrameSettings settings_;
  MessageBoxes messages_{false};
  TwoPrinters host_{settings_, messages_};
  PageDocument document_{host_};
  OwnSheets ownSheets_;
  std::unique_ptr<PageSetupDialog> dialog_;
};

TEST_F(PageSetup, ShowsTheDocumentsPaperAndMargins) {
  document_.PutPaperSize(11);
  document_.PutOrientation(1);
  document_.PutMarginTop(567);
  Open();
  EXPECT_EQ(Papers().currentText(), "A5（148 × 210 mm）");
  EXPECT_EQ(Length(0).value(), 148);
  EXPECT_EQ(Length(1).value(), 210);
  EXPECT_FALSE(Length(0).isEnabled());
  EXPECT_EQ(Length(3).value(), 10);
  EXPECT_TRUE(dialog_->findChildren<QRadioButton*>()[1]->isChecked());
  EXPECT_TRUE(Confirm().isEnabled());
}

TEST_F(PageSetup, PutsTheChoicesIntoTheDocument) {
  Open();
  Choose(kUserDefinedPaper);
  EXPECT_TRUE(Length(0).isEnabled());
  Length(0).setValue(241);
  Length(1).setValue(140);
  Length(2).setValue(5);
  Length(3).setValue(5);
  Length(4).setValue(5);
  Length(5).setValue(5);
  dialog_->findChildren<QRadioButton*>()[1]->click();
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), 256);
  EXPECT_NEAR(document_.PaperWidth(), 241 * kTwipsPerMillimetre, 0.01);
  EXPECT_NEAR(document_.PaperHeight(), 140 * kTwipsPerMillimetre, 0.01);
  EXPECT_NEAR(document_.MarginBottom(), 5 * kTwipsPerMillimetre, 0.01);
  EXPECT_EQ(document_.Orientation(), 1);
}

TEST_F(PageSetup, LeavesLengthsThatNobodyTouchedExactlyAsTheyWere) {
  document_.PutPaperWidth(12000);
  document_.PutPaperHeight(5000);
  document_.PutMarginTop(111);
  Open();
  dialog_->Apply();
  EXPECT_EQ(document_.PaperWidth(), 12000);
  EXPECT_EQ(document_.PaperHeight(), 5000);
  EXPECT_EQ(document_.MarginTop(), 111);
}

TEST_F(PageSetup, ChoosesANamedSheetWithItsSize) {
  document_.PutPaperWidth(12000);
  Open();
  Choose(8);
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), 8);
  EXPECT_NEAR(document_.PaperWidth(), 297 * kTwipsPerMillimetre, 0.01);
}

TEST_F(PageSetup, RefusesASheetWithoutAnArea) {
  Open();
  Choose(kUserDefinedPaper);
  Length(0).setValue(0);
  Length(1).setValue(0);
  EXPECT_FALSE(Confirm().isEnabled());
  EXPECT_EQ(Objection(), "纸张的宽度和高度都必须大于 0。");
  Length(0).setValue(100);
  Length(1).setValue(100);
  EXPECT_TRUE(Confirm().isEnabled());
  EXPECT_EQ(Objection(), "");
}

TEST_F(PageSetup, RefusesMarginsThatLeaveNothingOfTheSheet) {
  Open();
  Length(2).setValue(110);
  Length(4).setValue(100);
  EXPECT_FALSE(Confirm().isEnabled());
  EXPECT_EQ(Objection(), "左右页边距之和必须小于纸张的宽度。");
  dialog_->findChildren<QRadioButton*>()[1]->click();
  EXPECT_TRUE(Confirm().isEnabled()) << "there is room on the sheet in landscape";
  Length(3).setValue(210);
  EXPECT_EQ(Objection(), "上下页边距之和必须小于纸张的高度。");
}

TEST_F(PageSetup, ShowsAnUnknownPaperNumberWithItsSize) {
  document_.PutPaperSize(12345);
  Open();
  EXPECT_EQ(Papers().currentText(), "纸张 12345（210 × 297 mm）");
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), 12345);
}

TEST_F(PageSetup, OffersThePrintersAndShowsTheDocumentsOwn) {
  document_.PutDevice("仓库");
  Open();
  ASSERT_EQ(Printers().count(), 2);
  EXPECT_EQ(Printers().itemText(0), "前台");
  EXPECT_EQ(Printers().currentText(), "仓库");
  EXPECT_TRUE(Printers().isEnabled());
  dialog_->Apply();
  EXPECT_EQ(document_.Device(), "仓库");
  EXPECT_EQ(dialog_->ChosenPrinter(), "");
}

TEST_F(PageSetup, PutsTheChosenPrinterIntoTheDocument) {
  Open();
  EXPECT_EQ(Printers().currentText(), "前台");
  Printers().setCurrentText("仓库");
  EXPECT_EQ(dialog_->ChosenPrinter(), "仓库");
  EXPECT_EQ(document_.Device(), "前台") << "nothing is confirmed yet";
  dialog_->Apply();
  EXPECT_EQ(document_.Device(), "仓库");
}

TEST_F(PageSetup, DoesNotChooseAPrinterInThePlaceOfOneThatHasGone) {
  document_.PutDevice("仓库");
  Open("二楼");
  EXPECT_EQ(Printers().currentIndex(), -1);
  dialog_->Apply();
  EXPECT_EQ(document_.Device(), "仓库");
  Printers().setCurrentText("前台");
  dialog_->Apply();
  EXPECT_EQ(document_.Device(), "前台");
}

TEST_F(PageSetup, WithoutPrintersOffersNone) {
  DesktopHost host(settings_, messages_);  // the tests' printing system can't be reached
  PageDocument document(host);
  PageSetupDialog dialog(document, document.Device(), {}, nullptr);
  const auto* printers = dialog.findChildren<QComboBox*>()[0];
  EXPECT_FALSE(printers->isEnabled());
  EXPECT_EQ(printers->count(), 0);
  dialog.Apply();
  EXPECT_EQ(document.Device(), "");
}

TEST_F(PageSetup, ChangesNothingWhenItIsCancelled) {
  QTimer::singleShot(200, qApp, [] {
    auto* dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
    dialog->findChildren<QDoubleSpinBox*>()[2]->setValue(50);
    dialog->reject();
  });
  EXPECT_EQ(document_.ShowPageSetup(1), 0);
  EXPECT_EQ(document_.MarginLeft(), 0);
  QTimer::singleShot(200, qApp, [] {
    auto* dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
    dialog->findChildren<QDoubleSpinBox*>()[2]->setValue(50);
    QTest::mouseClick(dialog->findChildren<QPushButton*>()[0], Qt::LeftButton);
  });
  EXPECT_NE(document_.ShowPageSetup(1), 0);
  EXPECT_NEAR(document_.MarginLeft(), 50 * kTwipsPerMillimetre, 0.01);
}

}  // namespace
}  // namespace td
