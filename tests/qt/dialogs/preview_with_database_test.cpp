// The preview of a print call on a real database: page setup and its rows, and runs that fail.
#include <QPrintDialog>
#include <fstream>

#include "page_document/page_document.h"
#include "preview_use.h"
#include "print_log/print_record.h"
#include "qt/preview/page_setup_dialog.h"
#include "service/printer.h"
#include "shown_dialog.h"

namespace td {
namespace {

class PreviewWithDatabase : public ShownDialog {
 protected:
  // Shows the preview of one row and uses it, then closes it.
  bool Preview(const std::string& rows, std::function<void(PreviewWindow&)> use) {
    WhenShown<PreviewWindow>([use = std::move(use)](PreviewWindow& window) {
      use(window);
      window.close();
    });
    Printer printer(desktop_.Get());
    printer.DoPrint(false, database_.Connection(), 21, false, false,
                    desktop_.Get().database.OpenQuery(database_.Connection(), rows));
    return printer.PrintOk();
  }

  static void WaitForRun(PreviewWindow& window) { WaitForPageText(window, "第1页   共1页"); }

  static constexpr const char* kRow = "select 7 as FInterID";
};

TEST_F(PreviewWithDatabase, ConfirmedPageSetupIsStoredForTheFormatAndTheMachine) {
  EXPECT_FALSE(Preview(kRow, [this](PreviewWindow& window) {
    WaitForRun(window);
    WhenShown<PageSetupDialog>([](PageSetupDialog& dialog) {
      auto* papers = dialog.findChildren<QComboBox*>()[1];
      papers->setCurrentIndex(papers->findData(11));
      dialog.findChildren<QRadioButton*>()[1]->click();
      dialog.findChildren<QDoubleSpinBox*>()[2]->setValue(10);  // the left margin
      dialog.findChildren<QPushButton*>()[0]->click();
    });
    Press(window, "pageset");
    EXPECT_EQ(PageText(window), "第1页   共1页") << "the second run has ended";
  }));
  EXPECT_EQ(boxes_, std::vector<std::string>());
  EXPECT_EQ(Setting("FPaperSize"), "11");
  EXPECT_EQ(Setting("FOrientation"), "1");
  EXPECT_NEAR(std::stod(Setting("FMarginleft")), 567, 1);
  EXPECT_EQ(database_.Cell("select count(*) from TDBill_PaperSize"), "1");
  EXPECT_EQ(database_.OnlyRow("TDBill_PaperSize", {"FTDBillName", "FPaperSize", "FOrientation"}),
            "销售单,11,1");
  EXPECT_EQ(database_.Cell("select FIP from TDBill_PaperSize"),
            desktop_.Get().machine.LocalMachineId());
}

TEST_F(PreviewWithDatabase, CountsAsPrintedWhateverThePrinterDialogIsAnswered) {
  bool wasAsked = false;
  EXPECT_TRUE(Preview(kRow, [&](PreviewWindow& window) {
    WaitForRun(window);
    WhenShown<QPrintDialog>([&](QPrintDialog& dialog) {
      wasAsked = true;
      dialog.reject();
    });
    Press(window, "print");
    EXPECT_TRUE(window.isVisible());
  }));
  EXPECT_TRUE(wasAsked);
  EXPECT_EQ(boxes_, std::vector<std::string>());
}

TEST_F(PreviewWithDatabase, CancelledPageSetupStoresNothing) {
  Preview(kRow, [this](PreviewWindow& window) {
    WaitForRun(window);
    WhenShown<PageSetupDialog>([](PageSetupDialog& dialog) { dialog.reject(); });
    Press(window, "pageset");
  });
  EXPECT_EQ(database_.Cell("select count(*) from TDBill_PaperSize"), "0");
  EXPECT_EQ(Setting("FPaperSize"), "9");
}

TEST_F(PreviewWithDatabase, ARunThatFailsHalfwayLeavesThreeButtonsDisabledAndTheWindowOpen) {
  database_.Run(
      "alter table TDBill drop column FRowHeight;"
      "alter table TDBill add FRowHeight varchar(20) default '高'");
  EXPECT_FALSE(Preview(kRow, [](PreviewWindow& window) {
    for (const char* key : {"print", "zoom", "exit"}) {
      EXPECT_FALSE(window.findChild<QAction*>(key)->isEnabled()) << key;
    }
    for (const char* key : {"nextpage", "previouspage", "pageset", "adjuct"}) {
      EXPECT_TRUE(window.findChild<QAction*>(key)->isEnabled()) << key;
    }
    EXPECT_EQ(PageText(window), "请稍候，正在读入打印数据...");
  }));
  EXPECT_EQ(boxes_.size(), 1U) << "the conversion's words";
}

TEST_F(PreviewWithDatabase, WithoutAFormatTheWindowClosesByItself) {
  database_.Run("update TDBill set FSelected=0");
  Printer printer(desktop_.Get());
  printer.DoPrint(false, database_.Connection(), 21, false, false,
                  desktop_.Get().database.OpenQuery(database_.Connection(), kRow));
  EXPECT_FALSE(printer.PrintOk());
  EXPECT_EQ(boxes_, std::vector<std::string>{"未指定套打格式，打印被取消！"});
}

TEST_F(PreviewWithDatabase, TheLogHasALineForEachPrintOfAPreview) {
  const std::string log = folder_.File("prints.log");
  int documents = 0;
  DesktopOptions options;
  options.logFile = log;
  options.sinkTarget = "订单.pdf";
  options.documentSink = [&documents](const PageDocument&) {
    if (++documents == 2) throw Failure(kDeviceIo, "磁盘空间不足");
  };
  desktop_.PutOptions(std::move(options));
  Preview(kRow, [](PreviewWindow& window) {
    WaitForRun(window);
    Press(window, "print");
    Press(window, "print");
    WaitForRun(window);
  });
  Preview(kRow, [](PreviewWindow& window) { WaitForRun(window); });

  std::vector<std::string> results;
  std::ifstream lines(log);
  for (std::string line; std::getline(lines, line);) {
    const auto record = RecordOf(line);
    ASSERT_TRUE(record) << line;
    EXPECT_EQ(record->pages, 1);
    EXPECT_EQ(record->bills, (std::vector<std::string>{"7"}));
    results.push_back(record->result + " " + std::to_string(record->messages.size()));
  }
  EXPECT_EQ(results, (std::vector<std::string>{"written 0", "refused 1", "previewed 0"}));
  EXPECT_EQ(boxes_, std::vector<std::string>{"磁盘空间不足"});
}

}  // namespace
}  // namespace td
