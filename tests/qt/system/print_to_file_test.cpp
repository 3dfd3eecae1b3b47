// Printing on a machine without any printer: into a file.
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>

#include "qt/system/desktop_host.h"
#include "shown_preview.h"
#include "test_tools.h"

namespace td {
namespace {

class PrintToFile : public ShownPreview {
 protected:
  // Prints with the dialog, which `answer` uses and closes.
  int Print(std::function<void(QPrintDialog&)> answer) {
    constexpr int kUntilItIsShown = 500;  // milliseconds
    bool wasAsked = false;
    QTimer::singleShot(kUntilItIsShown, qApp, [&] {
      auto* dialog = dynamic_cast<QPrintDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      wasAsked = true;
      answer(*dialog);
    });
    const int failure = NumberOf([this] { frame_.Surface().PrintDoc(true); });
    EXPECT_TRUE(wasAsked);
    return failure;
  }
  static void Confirm(QPrintDialog& dialog) {
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
  }
};

TEST_F(PrintToFile, WritesTheChosenPagesOnTheirExactSheet) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("订单.pdf");
  PrintSurface& surface = frame_.Surface();
  surface.PutPaperWidth(static_cast<float>(241 * kTwipsPerMillimetre));
  surface.PutPaperHeight(static_cast<float>(140 * kTwipsPerMillimetre));
  surface.StartDoc();
  for (int page = 1; page <= 4; ++page) {
    if (page > 1) surface.NewPage();
    surface.TextBox("page" + std::to_string(page), 1000, 1000, 5000, 500);
  }
  surface.EndDoc();
  EXPECT_EQ(Print([&](QPrintDialog& dialog) {
              auto* name = dialog.findChild<QLineEdit*>("filename");
              ASSERT_TRUE(name->isEnabled()) << "a file is what can be chosen";
              name->setText(file);
              dialog.findChild<QAbstractButton*>("printRange")->setChecked(true);
              dialog.findChild<QSpinBox*>("from")->setValue(2);
              Confirm(dialog);
            }),
            0);
  const std::string pdf = file.toStdString();
  const std::vector<Sheet> sheets = SheetsOf(pdf);
  ASSERT_EQ(sheets.size(), 3U);
  for (const Sheet& sheet : sheets) {
    EXPECT_NEAR(sheet.width, 241, kTolerance);
    EXPECT_NEAR(sheet.height, 140, kTolerance);
  }
  (void)PlaceOf(WordsOf(pdf, 1), "page2");
  (void)PlaceOf(WordsOf(pdf, 3), "page4");
}

TEST_F(PrintToFile, CancellingWritesNothing) {
  MakeDocument(1);
  EXPECT_EQ(Print([](QPrintDialog& dialog) { dialog.reject(); }), 0);
}

TEST_F(PrintToFile, WithoutADialogThereIsNowhereToPrintTo) {
  MakeDocument(1);
  EXPECT_EQ(NumberOf([this] { frame_.Surface().PrintDoc(); }), kDeviceIo);
}

}  // namespace
}  // namespace td
