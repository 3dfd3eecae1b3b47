// The preview of a print by stock area, on a real display with the sample's database: a note of 40
// lines in the four areas A to D, twelve rows to a sheet.
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QTest>

#include "preview_use.h"
#include "print_queue.h"
#include "service/printer.h"
#include "shown_dialog.h"
#include "test_tools.h"

namespace td {
namespace {

class StockAreaWindow : public ShownDialog {
 protected:
  StockAreaWindow() : ShownDialog(SampleRows::kAll) {
    database_.Run(
        "update TDBill set FSelected=0 where FTranType=22;"
        "update TDBill set FSelected=1, FPrintDevice='QbTd-PDF' where FTDBillName='分区拣货单'");
  }

  // Shows the preview and uses it when its first run has ended, then closes it. Returns PrintOk.
  bool Preview(std::function<void(PreviewWindow&)> use, int blankRows = 0) {
    WhenShown<PreviewWindow>([use = std::move(use)](PreviewWindow& window) {
      WaitForPageText(window, "第1页   共4页");
      use(window);
      window.close();
    });
    Printer printer(desktop_.Get());
    printer.PrintBlankRows(static_cast<std::int16_t>(blankRows));
    printer.DoPrint_GroupByArea(
        false, database_.Connection(), 22, false, false,
        desktop_.Get().database.OpenQuery(
            database_.Connection(),
            "select * from v_stock_pick where FInterID=22005 order by FEntryID"));
    return printer.PrintOk();
  }

  // Whether the shown page has something dark in an area, in twips.
  static bool HasInk(PreviewWindow& window, const QRectF& area) {
    constexpr double kSheetWidth = 11905.51;
    auto& view = *window.findChild<QAbstractScrollArea*>();
    const QRectF sheet = dynamic_cast<PageView&>(view).SheetRect();
    const double scale = sheet.width() / kSheetWidth;
    const QRect pixels =
        QRectF(sheet.left() + area.left() * scale, sheet.top() + area.top() * scale,
               area.width() * scale, area.height() * scale)
            .toRect();
    const QImage image = view.viewport()->grab(pixels).toImage();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (qGray(image.pixel(x, y)) < 128) return true;
      }
    }
    return false;
  }

  // The name of the goods in a row, inside of the cell's lines; nothing stands there behind the
  // rows.
  static QRectF NameInRow(int row) { return {2000, 2280 + (row - 1) * 360.0 + 60, 2400, 240}; }
  static constexpr QRectF kAreaInHead{700, 1400, 1500, 400};
};

TEST_F(StockAreaWindow, ShowsASheetForEachArea) {
  EXPECT_FALSE(Preview([](PreviewWindow& window) {
    EXPECT_EQ(window.windowTitle(), "打印预览");
    const std::vector<std::pair<std::string, int>> sheets = {
        {"第1页   共4页", 12}, {"第2页   共4页", 8}, {"第3页   共4页", 11}, {"第4页   共4页", 9}};
    for (const auto& [text, rows] : sheets) {
      EXPECT_EQ(PageText(window), text);
      EXPECT_TRUE(HasInk(window, kAreaInHead)) << text;
      EXPECT_TRUE(HasInk(window, NameInRow(rows))) << text;
      EXPECT_FALSE(HasInk(window, NameInRow(rows + 1))) << text;
      Press(window, "nextpage");
    }
    EXPECT_EQ(PageText(window), "第4页   共4页") << "no page behind the last";
    Press(window, "previouspage");
    EXPECT_EQ(PageText(window), "第3页   共4页");
  }));
  EXPECT_EQ(boxes_, std::vector<std::string>());
}

TEST_F(StockAreaWindow, BlankRowsOfTheCallerChangeNothing) {
  Preview(
      [](PreviewWindow& window) {
        EXPECT_TRUE(HasInk(window, kAreaInHead));
        EXPECT_TRUE(HasInk(window, NameInRow(1)));
      },
      5);
}

TEST_F(StockAreaWindow, ZoomSwitchesBetweenHalfAndFullSize) {
  Preview([](PreviewWindow& window) {
    auto& view = dynamic_cast<PageView&>(*window.findChild<QAbstractScrollArea*>());
    const double full = view.SheetRect().width();
    Press(window, "zoom");
    EXPECT_NEAR(view.SheetRect().width(), full / 2, 1);
    Press(window, "zoom");
    EXPECT_NEAR(view.SheetRect().width(), full, 1);
  });
}

TEST_F(StockAreaWindow, PrintsWhatItShows) {
  const std::string title = UniqueTitle("stock-area");
  QGuiApplication::setApplicationDisplayName(QString::fromStdString(title));
  EXPECT_TRUE(Preview([this](PreviewWindow& window) {
    WhenShown<QPrintDialog>([](QPrintDialog& dialog) {
      dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    Press(window, "print");
  }));
  const std::vector<int> jobs = JobsTitled(title);
  ASSERT_EQ(jobs.size(), 1U);
  EXPECT_EQ(SheetsOf(ResultOf(jobs[0])).size(), 4U) << "one job for all areas";
}

TEST_F(StockAreaWindow, FineTuningPrintsByAreaAgain) {
  Preview([this](PreviewWindow& window) {
    WhenDialogIsShown([](DialogWindow& dialog) {
      Type(dialog, "txtRowsPerPage", "6");
      Click(dialog, "cmdOk");
    });
    Press(window, "adjuct");
    EXPECT_EQ(PageText(window), "第1页   共8页") << "two sheets for each area";
  });
  EXPECT_EQ(boxes_, std::vector<std::string>());
}

TEST_F(StockAreaWindow, PageSetupShowsTheSurfacesOwnMarginsAndPrintsByAreaAgain) {
  Preview([this](PreviewWindow& window) {
    WhenShown<QDialog>([](QDialog& dialog) {
      const auto lengths = dialog.findChildren<QDoubleSpinBox*>();
      for (int margin = 2; margin < 6; ++margin) {
        EXPECT_NEAR(lengths[margin]->value(), 25.4, 0.1) << "an inch each: nothing clears them";
      }
      dialog.findChildren<QPushButton*>()[0]->click();
    });
    Press(window, "pageset");
    EXPECT_EQ(PageText(window), "第1页   共4页");
    EXPECT_TRUE(HasInk(window, NameInRow(12)));
  });
  EXPECT_EQ(boxes_, std::vector<std::string>());
  EXPECT_EQ(database_.OnlyRow("TDBill_PaperSize", {"FTDBillName", "FOrientation"}), "分区拣货单,1");
}

TEST_F(StockAreaWindow, APrinterThatIsGoneLeavesThePreviewEmptyWithTheReason) {
  database_.Run(
      "insert into TDBill_PaperSize (FIP, FTDBillName, FPaperSize, FOrientation, FDevice)"
      " values ('" +
      desktop_.Get().machine.LocalMachineId() + "', '分区拣货单', 11, 1, '已拆的打印机')");
  WhenShown<PreviewWindow>([this](PreviewWindow& window) {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !boxes_.empty(); }));
    EXPECT_EQ(PageText(window), "请稍候，正在读入打印数据...");
    window.close();
  });
  Printer printer(desktop_.Get());
  printer.DoPrint_GroupByArea(
      false, database_.Connection(), 22, false, false,
      desktop_.Get().database.OpenQuery(database_.Connection(),
                                        "select * from v_stock_pick where FInterID=22005"),
      "分区拣货单");
  ASSERT_EQ(boxes_.size(), 1U);
  EXPECT_EQ(boxes_[0].find("将采用默认打印机"), std::string::npos);
}

}  // namespace
}  // namespace td
