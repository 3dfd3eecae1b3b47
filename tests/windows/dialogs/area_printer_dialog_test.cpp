// The stock-area printer dialog, used with mouse and keyboard; the database is read back.
#include "shown_dialog.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

class AreaPrinterDialog : public DialogOnDatabase {
 protected:
  [[nodiscard]] std::string Stored() {
    return Cell(
        "select FTranType || ',' || FTdBillName || ',' || FStockArea || ',' || FPrintDevice "
        "from TDBill_AreaPrinterDevice");
  }
  [[nodiscard]] std::string CountStored() {
    return Cell("select count(*) from TDBill_AreaPrinterDevice");
  }
};

void ChooseAreaA(DialogUser& user) {
  user.Choose("cmbBillType", "销售订货单");
  EXPECT_TRUE(WaitFor([&] { return user.Entries("cmbPrintFmt").size() == 2; }));
  user.Choose("cmbPrintFmt", "销售单");
  user.Choose("cmbStockArea", "A");
}

TEST_F(AreaPrinterDialog, ShowsBillTypesFormatsAreasAndPrinters) {
  ShowAreaPrinters([](DialogUser& user) {
    EXPECT_EQ(user.Entries("cmbBillType"), (Texts{"采购入库单", "销售订货单", "销售出库单"}));
    EXPECT_EQ(user.Selected("cmbBillType"), 0);
    EXPECT_EQ(user.Entries("cmbPrintFmt"), (Texts{"入库单"}));
    EXPECT_EQ(user.Entries("cmbStockArea"), (Texts{"A", "B"}));
    for (const char* list : {"cmbPrintFmt", "cmbStockArea", "cmbPrintDevice"}) {
      EXPECT_EQ(user.Selected(list), -1) << list;
    }
  });
  EXPECT_EQ(Boxes(), Texts());
}

TEST_F(AreaPrinterDialog, SavesAndStaysOpenForTheNextCombination) {
  ShowAreaPrinters([this](DialogUser& user) {
    ChooseAreaA(user);
    user.Choose("cmbPrintDevice", "QbTd-PDF");
    user.Click("cmdOk");
    EXPECT_TRUE(WaitForBoxes(1));
    EXPECT_TRUE(user.IsShown());
    EXPECT_EQ(Stored(), "21,销售单,A,QbTd-PDF");
    user.Choose("cmbPrintDevice", "--------------------");
    user.PressWithAlt('S');
    EXPECT_TRUE(WaitForBoxes(2));
    EXPECT_EQ(Stored(), "21,销售单,A,--------------------");
    user.PressWithAlt('C');
    EXPECT_TRUE(user.WaitUntilClosed());
  });
  EXPECT_EQ(Boxes(), (Texts{"保存成功！", "保存成功！"}));
}

TEST_F(AreaPrinterDialog, ShowsTheStoredPrinterAndKeepsItForAnUnknownCombination) {
  ShowAreaPrinters([this](DialogUser& user) {
    ChooseAreaA(user);
    user.Choose("cmbPrintDevice", "QbTd-PDF");
    user.Click("cmdOk");
    EXPECT_TRUE(WaitForBoxes(1));
  });
  ShowAreaPrinters([](DialogUser& user) {
    const auto shows = [&](const char* printer) {
      return WaitFor([&] { return user.SelectedText("cmbPrintDevice") == printer; });
    };
    ChooseAreaA(user);
    EXPECT_TRUE(shows("QbTd-PDF"));
    user.Choose("cmbStockArea", "B");
    user.Choose("cmbPrintDevice", "windows默认打印机");
    EXPECT_TRUE(shows("windows默认打印机"));
    user.Choose("cmbStockArea", "A");
    EXPECT_TRUE(shows("QbTd-PDF"));
    user.Choose("cmbStockArea", "B");
    user.Focus("cmbBillType");  // after the choice has been told
    EXPECT_TRUE(shows("QbTd-PDF"));
  });
}

TEST_F(AreaPrinterDialog, AFailingInsertIsReportedAndLosesTheOldRow) {
  ShowAreaPrinters([this](DialogUser& user) {
    ChooseAreaA(user);
    user.Click("cmdOk");
    EXPECT_TRUE(WaitForBoxes(1));
    other_.Run(
        "create trigger refuse before insert on TDBill_AreaPrinterDevice "
        "begin select raise(abort, 'disk is full'); end");
    user.Click("cmdOk");
    EXPECT_TRUE(WaitForBoxes(2));
    EXPECT_TRUE(user.IsShown());
  });
  ASSERT_EQ(Boxes().size(), 2U);
  EXPECT_NE(Boxes()[1].find("disk is full"), std::string::npos) << Boxes()[1];
  EXPECT_EQ(CountStored(), "0");
}

TEST_F(AreaPrinterDialog, ALockedDatabaseIsReportedAndTheUserCanTryAgain) {
  ShowAreaPrinters([this](DialogUser& user) {
    ChooseAreaA(user);
    other_.Run("begin exclusive");
    user.Click("cmdOk");
    EXPECT_TRUE(WaitForBoxes(1));
    other_.Run("rollback");
    EXPECT_EQ(CountStored(), "0");
    user.Click("cmdOk");
    EXPECT_TRUE(WaitForBoxes(2));
  });
  ASSERT_EQ(Boxes().size(), 2U);
  EXPECT_NE(Boxes()[0].find("锁"), std::string::npos) << Boxes()[0];
  EXPECT_EQ(Boxes()[1], "保存成功！");
}

}  // namespace
}  // namespace td
