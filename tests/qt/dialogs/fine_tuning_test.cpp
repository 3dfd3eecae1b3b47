// What the saved settings do to the preview and to the next print.
#include <QAction>
#include <QTest>
#include <QToolBar>

#include "page_document/page_document.h"
#include "print_queue.h"
#include "qt/preview/preview_window.h"
#include "qt/render/outputs.h"
#include "service/printer.h"
#include "shown_dialog.h"
#include "test_tools.h"

namespace td {
namespace {

class FineTuning : public ShownDialog {
 protected:
  FineTuning() {
    database_.Run(R"(
      insert into TDVariant (FTranType, FVarCaption, FVarName) values (21, '品名', 'FName');
      insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID, FIsVariant,
                                FObjectFieldName, FObjectCaption)
        values (1, 1, 1000,  500, 4000, 400, 0, 0, '', '订单抬头'),
               (1, 3, 1000, 2000, 4000, 400, 0, 1, '品名', ''),
               (1, 3, 6000, 2000, 2000, 0,   1, 0, '', ''),
               (1, 5, 1000, 5000, 4000, 400, 0, 0, '', '页脚文字');
    )");
  }

  // Three rows of one bill.
  RecordsetRef Rows() {
    return desktop_.Get().database.OpenQuery(
        database_.Connection(),
        "select 7 as FInterID, '大米' as FName union all select 7, '花生油' "
        "union all select 7, '绿豆'");
  }

  // Shows the preview, presses 微调, uses the dialog, and returns the page text that follows.
  std::string PageTextAfter(Use use) {
    std::string text;
    WhenShown<PreviewWindow>([&, use = std::move(use)](PreviewWindow& window) {
      auto& pageText = *window.findChild<QLineEdit*>("txtPageNo");
      EXPECT_TRUE(QTest::qWaitFor([&] { return pageText.text() == "第1页   共1页"; }));
      WhenDialogIsShown(use);
      auto* toolbar = window.findChild<QToolBar*>();
      QTest::mouseClick(toolbar->widgetForAction(window.findChild<QAction*>("adjuct")),
                        Qt::LeftButton);
      text = pageText.text().toStdString();
      window.close();
    });
    Printer(desktop_.Get())
        .DoPrint(false, database_.Connection(), 21, false, false, Rows(), "销售单");
    return text;
  }

  // Prints without a window into a PDF file. Returns its path.
  std::string Print(const std::string& name) {
    const std::string pdf = folder_.File(name);
    DesktopOptions options;
    options.stateDirectory = folder_.Path().string();
    options.documentSink = [&](const PageDocument& document) {
      WritePdf(document.Pages(), pdf, "test");
    };
    DesktopPlatform printing(options);
    Printer(printing.Get()).DoPrint(true, database_.Connection(), 21, false, false, Rows());
    return pdf;
  }
};

TEST_F(FineTuning, ConfirmedPrintsAgainInTheSameWindow) {
  EXPECT_EQ(PageTextAfter([](DialogWindow& window) {
              EXPECT_EQ(EntriesOf(window, "cmbTdBillName"), std::vector<std::string>{"销售单"});
              Type(window, "txtRowsPerPage", "1");
              Click(window, "cmdOk");
            }),
            "第1页   共3页");
}

TEST_F(FineTuning, CancelledLeavesTheDocumentAsItWas) {
  EXPECT_EQ(PageTextAfter([](DialogWindow& window) {
              Type(window, "txtRowsPerPage", "1");
              Click(window, "cmdExit");
            }),
            "第1页   共1页");
}

// Something dark in the second row of a page of rows of 600 twips, where the row's line is drawn.
bool HasLineInSecondRow(const std::string& pdf, int page) {
  constexpr double kDotsPerInch = 150;
  constexpr double kLeft = (6000 + 567 + 200) / kTwipsPerMillimetre;
  constexpr double kRow = (2000 + 283.5 + 113.4 + 600) / kTwipsPerMillimetre;
  return !InkIn(ImageOf(pdf, kDotsPerInch, page), kDotsPerInch, QRectF(kLeft, kRow - 1, 20, 2))
              .isEmpty();
}

TEST_F(FineTuning, TheNextPrintFollowsTheSavedSettings) {
  const std::string before = Print("before.pdf");
  ASSERT_EQ(SheetsOf(before).size(), 1U);
  const QRectF head = PlaceOf(WordsOf(before), "订单抬头");
  const QRectF row = PlaceOf(WordsOf(before), "大米");
  ShowSettings([](DialogWindow& window) {
    Type(window, "txtLeft", "567");
    Type(window, "txtTop", "283.5");
    Type(window, "txtHeader", "113.4");
    Type(window, "txtRowHeight", "600");
    Type(window, "txtRowsPerPage", "2");
    Click(*window.Named<QButtonGroup>("optOrientation").button(1));
    Click(window.Named<QCheckBox>("chkHeaderPerPage"));
    Click(window.Named<QCheckBox>("chkFooterPerPage"));
    Click(window.Named<QCheckBox>("chkIntegralPage"));
    Click(window, "cmdOk");
  });
  const std::string after = Print("after.pdf");
  EXPECT_EQ(boxes_, std::vector<std::string>());
  const std::vector<Sheet> sheets = SheetsOf(after);
  ASSERT_EQ(sheets.size(), 2U) << "two rows a page";
  EXPECT_NEAR(sheets[0].width, 297, kTolerance) << "landscape";
  EXPECT_NEAR(sheets[0].height, 210, kTolerance);

  const std::vector<Word> first = WordsOf(after, 1);
  const std::vector<Word> second = WordsOf(after, 2);
  const auto expect_at = [](const QRectF& place, const QRectF& former, double right, double down) {
    EXPECT_NEAR(place.left(), former.left() + right, kTolerance);
    EXPECT_NEAR(place.top(), former.top() + down, kTolerance);
  };
  const double rowHeight = 600 / kTwipsPerMillimetre;
  expect_at(PlaceOf(first, "订单抬头"), head, 10, 5);
  expect_at(PlaceOf(second, "订单抬头"), head, 10, 5);
  expect_at(PlaceOf(first, "大米"), row, 10, 5);
  expect_at(PlaceOf(first, "花生油"), row, 10, 5 + rowHeight);
  expect_at(PlaceOf(second, "绿豆"), row, 10, 5 + 2);
  (void)PlaceOf(first, "页脚文字");
  (void)PlaceOf(second, "页脚文字");
  EXPECT_TRUE(HasLineInSecondRow(after, 2)) << "the empty row has its line";
}

TEST_F(FineTuning, TheNextPrintGoesToTheSavedPrinter) {
  const std::string title = UniqueTitle("saved-printer");
  QGuiApplication::setApplicationDisplayName(QString::fromStdString(title));
  ShowSettings([](DialogWindow& window) {
    Choose(window, "cmbPrintDevice", "QbTd-Margins");
    Click(window, "cmdOk");
  });
  Printer(desktop_.Get()).DoPrint(true, database_.Connection(), 21, false, false, Rows());
  const std::vector<int> jobs = JobsTitled(title);
  ASSERT_EQ(jobs.size(), 1U);
  EXPECT_NE(OutputOf("lpstat", {"-W", "all", "-o", "QbTd-Margins"})
                .find("QbTd-Margins-" + std::to_string(jobs[0]) + " "),
            std::string::npos);
}

}  // namespace
}  // namespace td
