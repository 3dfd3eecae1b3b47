// The stock-area printer dialog, used with mouse and keyboard; the database is read back.
#include "passing_database.h"
#include "shown_dialog.h"
#include "windows/frm_area_print_set.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

using AreaPrinterDialog = ShownDialog;

std::string Stored(WindowDatabase& database) {
  return database.OnlyRow("TDBill_AreaPrinterDevice",
                          {"FTranType", "FTdBillName", "FStockArea", "FPrintDevice"});
}

void ChooseAreaA(DialogWindow& window) {
  Choose(window, "cmbBillType", "销售订货单");
  Choose(window, "cmbPrintFmt", "销售单");
  Choose(window, "cmbStockArea", "A");
}

TEST_F(AreaPrinterDialog, ShowsBillTypesFormatsAreasAndPrinters) {
  ShowAreaPrinters([](DialogWindow& window) {
    EXPECT_EQ(window.windowTitle(), "分库区打印设置");
    EXPECT_EQ(EntriesOf(window, "cmbBillType"), (Texts{"采购入库单", "销售订货单", "销售出库单"}));
    EXPECT_EQ(window.Named<QComboBox>("cmbBillType").currentIndex(), 0);
    EXPECT_EQ(EntriesOf(window, "cmbPrintFmt"), (Texts{"入库单"}));
    EXPECT_EQ(EntriesOf(window, "cmbStockArea"), (Texts{"A", "B"}));
    for (const char* list : {"cmbPrintFmt", "cmbStockArea", "cmbPrintDevice"}) {
      EXPECT_EQ(window.Named<QComboBox>(list).currentIndex(), -1) << list;
    }
  });
  EXPECT_EQ(boxes_, Texts());
}

// Goods without an area come as Null.
class NullAreas : public PassingDatabase {
 public:
  using PassingDatabase::PassingDatabase;

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override {
    const bool isOfAreas = sql.find("t_icitem") != std::string::npos;
    return PassingDatabase::OpenQuery(
        connection, isOfAreas ? "select FStockArea from t_icitem order by FItemID" : sql, cursor,
        lock);
  }
};

TEST_F(AreaPrinterDialog, ANullIsNoFurtherArea) {
  NullAreas areas(desktop_.Get().database);
  Platform platform = PlatformOn(areas, desktop_.Get());
  WhenDialogIsShown([](DialogWindow& window) {
    EXPECT_EQ(EntriesOf(window, "cmbStockArea"), (Texts{"A1", "A2", "B"}));
  });
  PrintContext request;
  request.New_PromptString = database_.Connection();
  frmAreaPrintSet(platform, request).ShowModal();
  EXPECT_EQ(boxes_, Texts());
}

TEST_F(AreaPrinterDialog, SavesAndStaysOpenForTheNextCombination) {
  ShowAreaPrinters([this](DialogWindow& window) {
    ChooseAreaA(window);
    Choose(window, "cmbPrintDevice", "QbTd-PDF");
    Click(window, "cmdOk");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Stored(database_), "21,销售单,A,QbTd-PDF");
    Choose(window, "cmbPrintDevice", "--------------------");
    PressMnemonic(window, Qt::Key_S);
    EXPECT_EQ(Stored(database_), "21,销售单,A,--------------------");
    PressMnemonic(window, Qt::Key_C);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(boxes_, (Texts{"保存成功！", "保存成功！"}));
}

TEST_F(AreaPrinterDialog, ShowsTheStoredPrinterAndKeepsItForAnUnknownCombination) {
  ShowAreaPrinters([](DialogWindow& window) {
    ChooseAreaA(window);
    Choose(window, "cmbPrintDevice", "QbTd-PDF");
    Click(window, "cmdOk");
  });
  ShowAreaPrinters([](DialogWindow& window) {
    auto& printers = window.Named<QComboBox>("cmbPrintDevice");
    ChooseAreaA(window);
    EXPECT_EQ(printers.currentText(), "QbTd-PDF");
    Choose(window, "cmbStockArea", "B");
    EXPECT_EQ(printers.currentText(), "QbTd-PDF");
    Choose(window, "cmbPrintDevice", "windows默认打印机");
    Choose(window, "cmbStockArea", "A");
    EXPECT_EQ(printers.currentText(), "QbTd-PDF");
  });
}

TEST_F(AreaPrinterDialog, AFailingInsertIsReportedAndLosesTheOldRow) {
  ShowAreaPrinters([this](DialogWindow& window) {
    ChooseAreaA(window);
    Click(window, "cmdOk");
    database_.Refuse("insert", "TDBill_AreaPrinterDevice", "new.FTranType=21");
    Click(window, "cmdOk");
    EXPECT_TRUE(window.isVisible());
  });
  ASSERT_EQ(boxes_.size(), 2U);
  EXPECT_NE(boxes_[1].find("disk is full"), std::string::npos) << boxes_[1];
  EXPECT_EQ(database_.Cell("select count(*) from TDBill_AreaPrinterDevice"), "0");
}

TEST_F(AreaPrinterDialog, ALockedDatabaseIsReportedAndTheUserCanTryAgain) {
  ShowAreaPrinters([this](DialogWindow& window) {
    ChooseAreaA(window);
    const auto lock = database_.Lock("TDBill_AreaPrinterDevice");
    Click(window, "cmdOk");
    lock->Release();
    EXPECT_EQ(database_.Cell("select count(*) from TDBill_AreaPrinterDevice"), "0");
    Click(window, "cmdOk");
  });
  ASSERT_EQ(boxes_.size(), 2U);
  EXPECT_NE(boxes_[0].find("锁"), std::string::npos) << boxes_[0];
  EXPECT_EQ(boxes_[1], "保存成功！");
}

}  // namespace
}  // namespace td
