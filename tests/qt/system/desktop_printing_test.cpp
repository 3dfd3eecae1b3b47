// Whole runs on the desktop's platform, whose documents go to real queues.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "desktop/desktop_platform.h"
#include "page_document/page_document.h"
#include "print_queue.h"
#include "service/printer.h"
#include "test_tools.h"

namespace td {
namespace {

// A format of one row a page.
class DesktopPrinting : public testing::Test {
 protected:
  DesktopPrinting() {
    std::ofstream{folder_.Path("bills.db")};
    options_.stateDirectory = folder_.Path("state");
    options_.messages = MessageMode::kStandardError;
    options_.onPrinted = [this] { ++printed_; };
    options_.onComplaint = [this](const std::string& text) { complaints_.push_back(text); };
    Execute(R"(create table TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize,
                 FPaperWidth, FPaperHeight, FOrientation, FRowsPerPage, FRowHeight, FPrintDevice,
                 FAdjuctHeader, FAdjuctLeft, FAdjuctTop, FHeaderPerPage, FFooterPerPage,
                 FIntegralPage))");
    Execute(R"(create table TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID,
                 FIsVariant, FMustPrint, FObjectFieldName, FObjectCaption, FFormatString, FFontName,
                 FFontSize, FFontBold, FFontItalic, FAlignMent, FAutoSize, FWordWrap, Fborderwidth,
                 FPicturePath))");
    Execute("create table TDVariant (FTranType, FVarCaption, FVarName)");
    Execute("create table TDBill_PaperSize (FIP, FTDBillName, FPaperSize, FOrientation, FDevice)");
    Execute("create table t_SystemProfile (FKey, FValue)");
    Execute(R"(insert into TDBill values (1, 21, '订单', 1, 256, 12000, 5000, 0, 2, 300, null, 0, 0,
                 0, 0, 0, 0))");
  }

  [[nodiscard]] std::string Connection() const { return "sqlite:" + folder_.Path("bills.db"); }
  void Execute(const std::string& statement) {
    DesktopPlatform().Get().database.Connect(Connection())->Execute(statement);
  }

  // Prints rows of "select … as FBillNo" and returns what is written on standard error.
  std::string Print(const std::string& rows) {
    DesktopPlatform desktop(options_);
    QGuiApplication::setApplicationDisplayName(QString::fromStdString(title_));
    const RecordsetRef data = desktop.Get().database.OpenQuery(Connection(), rows);
    Printer printer(desktop.Get());
    testing::internal::CaptureStderr();
    printer.DoPrint(true, Connection(), 21, false, false, data);
    isOk_ = printer.PrintOk();
    shown_ = desktop.MessagesShown();
    return testing::internal::GetCapturedStderr();
  }

  Folder folder_;
  DesktopOptions options_;
  const std::string title_ =
      UniqueTitle(testing::UnitTest::GetInstance()->current_test_info()->name());
  std::vector<std::string> complaints_;
  int printed_ = 0;
  int shown_ = 0;
  bool isOk_ = false;
};

TEST_F(DesktopPrinting, ShowsABoxWhenThePrinterVanishesBeforeTheJobIsSent) {
  TemporaryQueue queue;
  Execute("update TDBill set FPrintDevice='" + queue.Name() + "'");
  options_.onPage = [&queue](int) { queue.Remove(); };
  const std::string errors = Print("select 1 as FInterID, 'SO-1' as FBillNo");
  EXPECT_NE(errors.find(queue.Name()), std::string::npos) << errors;
  EXPECT_EQ(errors.find("将采用默认打印机"), std::string::npos) << errors;
  EXPECT_EQ(shown_, 1);
  EXPECT_EQ(printed_, 0);
  EXPECT_TRUE(JobsTitled(title_).empty());
}

TEST_F(DesktopPrinting, PrintsOnTheSheetOfAnEnvelopesCode) {
  Execute("update TDBill set FPaperSize=100, FPrintDevice='QbTd-PDF'");
  Print("select 1 as FInterID");
  const std::vector<int> jobs = JobsTitled(title_);
  ASSERT_EQ(jobs.size(), 1U);
  const std::vector<Sheet> sheets = SheetsOf(ResultOf(jobs[0]));
  ASSERT_EQ(sheets.size(), 1U);
  EXPECT_NEAR(sheets[0].width, 110, 0.2) << "the driver's envelope DL";
  EXPECT_NEAR(sheets[0].height, 220, 0.2);
  EXPECT_TRUE(complaints_.empty());
}

TEST_F(DesktopPrinting, PrintsAFormatWithoutPaperOnThePrintersOwnSheet) {
  Execute("update TDBill set FPaperSize=0");
  options_.printer = "QbTd-Form";
  Print("select 1 as FInterID");
  const std::vector<int> jobs = JobsTitled(title_);
  ASSERT_EQ(jobs.size(), 1U);
  const std::vector<Sheet> sheets = SheetsOf(ResultOf(jobs[0]));
  ASSERT_EQ(sheets.size(), 1U);
  EXPECT_NEAR(sheets[0].width, 230, kTolerance);
  EXPECT_NEAR(sheets[0].height, 127, kTolerance);
}

TEST_F(DesktopPrinting, ABarcodeThatCannotBeMadeCostsNothingElseOfItsBand) {
  Execute(R"(insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID,
               FIsVariant, FObjectFieldName, FObjectCaption, FFontName, FFontSize, FAlignMent)
             values (1, 3, 500, 300, 3000, 800, 0, 1, '<单号条码图>', '', '宋体', 12, 0),
                    (1, 3, 500, 1500, 3000, 400, 0, 0, '', '带后的文字', '宋体', 12, 0))");
  std::vector<Page> pages;
  options_.documentSink = [&](const PageDocument& document) { pages = document.Pages(); };
  const std::string tooLong(90, 'W');
  const std::string errors =
      Print("select 1 as FInterID, '" + tooLong + "' as FBillNo union all select 1, '" + tooLong +
            "' union all select 1, '订单' union all select 1, ''");
  EXPECT_EQ(errors, "");
  EXPECT_EQ(shown_, 0);
  EXPECT_TRUE(isOk_);
  ASSERT_EQ(pages.size(), 2U);
  for (const Page& page : pages) {
    EXPECT_EQ(page.commands.size(), 4U) << "two rows, each a picture and a text";
  }
  ASSERT_EQ(complaints_.size(), 2U) << "one for each reason, however many pages";
  EXPECT_NE(complaints_[0].find("长度"), std::string::npos);
  EXPECT_NE(complaints_[1].find("为空"), std::string::npos);
}

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  testing::InitGoogleTest(&argc, argv);
  testing::AddGlobalTestEnvironment(new td::PrintQueues);
  return RUN_ALL_TESTS();
}
