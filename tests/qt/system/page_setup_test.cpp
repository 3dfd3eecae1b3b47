// The page-setup dialog on a real display.
#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include "qt/preview/page_setup_dialog.h"
#include "qt/system/desktop_host.h"
#include "qt/system/message_boxes.h"

namespace td {
namespace {

// A machine with two printers, the first of them its default.
class TwoPrinters : public DesktopHost {
 public:
  using DesktopHost::DesktopHost;

  std::vector<std::string> Devices() override { return {"前台", "仓库"}; }
  std::string DefaultDevice() override { return "前台"; }
  bool HasDevice(const std::string& name) override { return name == "前台" || name == "仓库"; }
  std::optional<PaperExtent> DefaultSheet() override { return std::nullopt; }
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
  std::int32_t PaperCode() { return Papers().currentData().toInt(); }
  static void TurnWheel(QWidget& field, int turned) {
    const QPointF place = field.rect().center();
    QWheelEvent event(place, field.mapToGlobal(place), {}, {0, turned}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&field, &event);
  }
  void Choose(std::int32_t paper) { Papers().setCurrentIndex(Papers().findData(paper)); }
  std::string Objection() {
    for (const QLabel* label : dialog_->findChildren<QLabel*>()) {
      if (label->wordWrap()) return label->text().toStdString();
    }
    return "no label for it";
  }

  FrameSettings settings_;
  MessageBoxes messages_{MessageMode::kStandardError};
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

// ---- Fields and keys

TEST_F(PageSetup, TheWheelChangesNoFieldThatHasNoFocus) {
  Open();
  dialog_->show();
  dialog_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
  Choose(kUserDefinedPaper);
  Confirm().setFocus();
  std::vector<QWidget*> fields;
  for (QComboBox* list : dialog_->findChildren<QComboBox*>()) fields.push_back(list);
  for (QDoubleSpinBox* field : dialog_->findChildren<QDoubleSpinBox*>()) {
    fields.push_back(field);
    fields.push_back(field->findChild<QLineEdit*>());
  }
  ASSERT_EQ(fields.size(), 14U);
  Length(2).setValue(20);
  for (QWidget* field : fields) {
    for (const int turned : {120, -120}) TurnWheel(*field, turned);
  }
  EXPECT_TRUE(Confirm().hasFocus()) << "the wheel gives no field the focus";
  EXPECT_EQ(PaperCode(), kUserDefinedPaper);
  EXPECT_EQ(Printers().currentText(), "前台");
  EXPECT_EQ(Length(0).value(), 210);
  EXPECT_EQ(Length(2).value(), 20);
  Length(2).setFocus();
  TurnWheel(Length(2), 120);
  EXPECT_EQ(Length(2).value(), 21) << "the user has gone there";
  Papers().setFocus();
  TurnWheel(Papers(), 120);
  EXPECT_NE(PaperCode(), kUserDefinedPaper);
}

TEST_F(PageSetup, ItsButtonsHaveKeys) {
  for (const auto& [key, confirms] : {std::pair(Qt::Key_O, true), std::pair(Qt::Key_C, false)}) {
    Open();
    dialog_->show();
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
    QTest::keyClick(dialog_->windowHandle(), key, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog_->isVisible(); }));
    EXPECT_EQ(dialog_->result() == QDialog::Accepted, confirms);
  }
}

TEST_F(PageSetup, TabGoesToTheOptionThatIsSet) {
  document_.PutOrientation(1);
  Open();
  dialog_->show();
  dialog_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
  const QList<QRadioButton*> options = dialog_->findChildren<QRadioButton*>();
  const auto optionReached = [&](QWidget& from, Qt::KeyboardModifiers modifiers) -> QWidget* {
    from.setFocus();
    for (int i = 0; i < 20; ++i) {
      QTest::keyClick(dialog_->windowHandle(), modifiers ? Qt::Key_Backtab : Qt::Key_Tab,
                      modifiers);
      QWidget* reached = dialog_->focusWidget();
      if (qobject_cast<QRadioButton*>(reached) != nullptr) return reached;
    }
    return nullptr;
  };
  EXPECT_EQ(optionReached(Papers(), {}), options[1]);
  EXPECT_EQ(optionReached(Length(2), Qt::ShiftModifier), options[1]);
  EXPECT_TRUE(options[1]->isChecked()) << "going there chooses nothing";
  QTest::keyClick(dialog_->windowHandle(), Qt::Key_Up);
  EXPECT_TRUE(options[0]->isChecked());
  EXPECT_EQ(optionReached(Papers(), {}), options[0]);
}

TEST_F(PageSetup, ALongPrinterNameCanBeReadWhole) {
  const QString name = "二楼东侧财务室-" + QString("很长的名称").repeated(12) + "-针式打印机";
  Open();
  Printers().addItem(name);
  Printers().setCurrentText(name);
  dialog_->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog_.get()));
  EXPECT_LT(dialog_->width(), 760) << "the name doesn't widen the dialog";
  const auto toolTip = [](QWidget& field) {
    QHelpEvent event(QEvent::ToolTip, field.rect().center(),
                     field.mapToGlobal(field.rect().center()));
    QApplication::sendEvent(&field, &event);
    return QToolTip::text();
  };
  EXPECT_EQ(toolTip(Printers()), name);
  QToolTip::hideText();
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
  EXPECT_EQ(toolTip(Papers()), "") << "it is shown whole";

  // Its beginning and its end are shown: they make a difference to the picture.
  const QImage whole = Printers().grab().toImage();
  for (const QString& other : {QString("三") + name.mid(1), name.chopped(1) + "台"}) {
    Printers().setItemText(Printers().currentIndex(), other);
    EXPECT_NE(Printers().grab().toImage(), whole) << other.toStdString();
  }
}

// ---- User-defined sheets, whose size no machine keeps

class UnkeptSheet : public PageSetup {
 protected:
  // Confirms a sheet of these millimetres, and answers the warning with the button of this key.
  void Confirm(double width, double height, QChar key) {
    constexpr int kUntilItIsShown = 200;  // milliseconds
    Open();
    Choose(kUserDefinedPaper);
    Length(0).setValue(width);
    Length(1).setValue(height);
    warning_.clear();
    buttons_.clear();
    QTimer::singleShot(kUntilItIsShown, dialog_.get(), [this, key] {
      auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      warning_ = box->text() + box->informativeText();
      for (QAbstractButton* button : box->buttons()) {
        buttons_ += button->text();
        if (button->text().endsWith(QString("(&%1)").arg(key))) {
          QTest::mouseClick(button, Qt::LeftButton);
        }
      }
      if (box->isVisible()) ADD_FAILURE() << "no button has this key", box->reject();
    });
    dialog_->show();
    QTest::mouseClick(&PageSetup::Confirm(), Qt::LeftButton);
    QTest::qWait(key.isNull() ? kUntilItIsShown : 0);
  }

  QString warning_;  // empty if there was none
  QStringList buttons_;
};

TEST_F(UnkeptSheet, IsConfirmedAfterAWarningOnly) {
  Confirm(230, 127, 'B');
  EXPECT_TRUE(warning_.contains("本机不会记住自定义纸张的宽度和高度（230 × 127 mm）"));
  EXPECT_TRUE(dialog_->isVisible()) << "back to the dialog";
  Confirm(230, 127, 'O');
  EXPECT_FALSE(dialog_->isVisible());
  EXPECT_EQ(dialog_->result(), QDialog::Accepted);
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), kUserDefinedPaper);
  EXPECT_NEAR(document_.PaperWidth(), 230 * kTwipsPerMillimetre, 0.01);
  EXPECT_TRUE(warning_.contains("请管理员")) << warning_.toStdString();
}

TEST_F(UnkeptSheet, IsWarnedOfWhenOnlyThePrinterIsChosen) {
  document_.PutPaperWidth(static_cast<float>(230 * kTwipsPerMillimetre));
  document_.PutPaperHeight(static_cast<float>(127 * kTwipsPerMillimetre));
  QTimer::singleShot(200, qApp, [] {
    auto* dialog = dynamic_cast<PageSetupDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->findChildren<QComboBox*>()[0]->setCurrentText("仓库");
    QTimer::singleShot(200, dialog, [] {
      auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr) << "the warning";
      box->reject();
    });
    QTest::mouseClick(dialog->findChildren<QPushButton*>()[0], Qt::LeftButton);
    EXPECT_TRUE(dialog->isVisible());
    dialog->reject();
  });
  EXPECT_EQ(document_.ShowPageSetup(1), 0);
}

TEST_F(UnkeptSheet, BecomesThePaperOfThatSizeWhereThereIsOne) {
  Confirm(210, 148, 'U');
  EXPECT_TRUE(warning_.contains("纸张 78（210 × 148 mm）")) << warning_.toStdString();
  EXPECT_FALSE(dialog_->isVisible());
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), 78);
  EXPECT_NEAR(document_.PaperWidth(), 210 * kTwipsPerMillimetre, 0.01);
  Confirm(210, 297, 'U');
  EXPECT_TRUE(warning_.contains("A4（210 × 297 mm）")) << warning_.toStdString();
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), kPaperA4);
  Confirm(210, 297, 'O');
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), kUserDefinedPaper) << "who wants it so";
}

TEST_F(UnkeptSheet, NamesThePrinterWhoseOwnSheetItIs) {
  ownSheets_.ofPrinter = [](const std::string& printer) {
    return printer == "仓库"
               ? std::optional(PaperExtent{230 * kTwipsPerMillimetre, 127 * kTwipsPerMillimetre})
               : std::nullopt;
  };
  Confirm(230, 127, 'B');
  EXPECT_TRUE(warning_.contains("打印机“仓库”自己的纸张正是这个大小")) << warning_.toStdString();
  EXPECT_EQ(buttons_.size(), 2) << "nothing that could be done here";
  Confirm(230, 128, 'B');
  EXPECT_FALSE(warning_.contains("仓库"));
}

TEST_F(UnkeptSheet, IsKeptWhereNewDocumentsBeginWithIt) {
  ownSheets_.ofNewDocument = [] {
    return std::optional(PaperExtent{230 * kTwipsPerMillimetre, 127 * kTwipsPerMillimetre});
  };
  Confirm(230, 127, {});
  EXPECT_EQ(warning_, "");
  EXPECT_FALSE(dialog_->isVisible());
  Confirm(127, 230, 'B');
  EXPECT_NE(warning_, "") << "the sheet turned is another one";
}

}  // namespace
}  // namespace td
