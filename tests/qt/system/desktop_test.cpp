// The platform on a machine that has neither a display nor a printer.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "desktop/desktop_platform.h"
#include "page_document/page_document.h"
#include "test_tools.h"

namespace td {
namespace {

class Desktop : public testing::Test {
 protected:
  void Start(DesktopOptions options = {}) {
    if (options.stateDirectory.empty()) options.stateDirectory = folder_.Path("state");
    desktop_ = std::make_unique<DesktopPlatform>(std::move(options));
    frame_ = desktop_->Get().windows.CreatePrintFrame("frmTdPrint");
  }
  PrintSurface& Surface() { return frame_->Surface(); }
  void MakeDocument(int pages) {
    Surface().StartDoc();
    Surface().TextBox("正文", 1000, 1000, 3000, 500);
    for (int page = 2; page <= pages; ++page) Surface().NewPage();
    Surface().EndDoc();
  }

  Folder folder_;
  std::unique_ptr<DesktopPlatform> desktop_;
  std::unique_ptr<PrintFrame> frame_;
};

TEST_F(Desktop, WithoutAPrinterDoesEverythingButPrint) {
  Start();
  MakeDocument(2);
  EXPECT_EQ(Surface().PageCount(), 2);
  EXPECT_EQ(Surface().DeviceCount(), 0);
  EXPECT_EQ(Surface().Device(), "");
  EXPECT_EQ(NumberOf([&] { Surface().PutDevice("针式打印机"); }), kInvalidProperty);
  try {
    Surface().PrintDoc();
    FAIL() << "printed without a printer";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kDeviceIo);
    EXPECT_EQ(failure.Description(), "本机没有安装打印机，无法打印。");
  }
}

TEST_F(Desktop, HandsADocumentToTheSinkInThePlaceOfAPrinter) {
  std::size_t pages = 0;
  DesktopOptions options;
  options.documentSink = [&](const PageDocument& document) { pages = document.Pages().size(); };
  Start(std::move(options));
  MakeDocument(3);
  Surface().PrintDoc();
  EXPECT_EQ(pages, 3U);
  pages = 0;
  Surface().PrintDoc(true);
  EXPECT_EQ(pages, 3U) << "no dialog is asked for";
}

TEST_F(Desktop, LetsTheSinksFailureThrough) {
  DesktopOptions options;
  options.documentSink = [](const PageDocument&) { throw Failure(kPathNotFound, "没有文件夹"); };
  Start(std::move(options));
  MakeDocument(1);
  EXPECT_EQ(NumberOf([&] { Surface().PrintDoc(); }), kPathNotFound);
}

TEST_F(Desktop, TellsOfEachPageThatIsFinished) {
  std::vector<int> finished;
  DesktopOptions options;
  options.onPage = [&](int page) { finished.push_back(page); };
  Start(std::move(options));
  MakeDocument(3);
  EXPECT_EQ(finished, (std::vector<int>{1, 2, 3}));
}

TEST_F(Desktop, KeepsTheExportFileInTheStateDirectory) {
  Start();
  Surface().PutExportFile("c:\\订单.html");
  Surface().PutExportFormat(1);
  MakeDocument(2);
  const std::string html = ReadFile(folder_.Path("state/订单.html"));
  EXPECT_NE(html.find("正文"), std::string::npos);
  EXPECT_EQ(desktop_->MessagesShown(), 0);
}

TEST_F(Desktop, ShowsAFailingExportAndPrintsAllTheSame) {
  std::filesystem::create_directories(folder_.Path("state/订单.html/full"));
  bool printed = false;
  DesktopOptions options;
  options.documentSink = [&](const PageDocument&) { printed = true; };
  Start(std::move(options));
  Surface().PutExportFile("c:\\订单.html");
  Surface().PutExportFormat(1);
  testing::internal::CaptureStderr();
  MakeDocument(1);
  EXPECT_NE(testing::internal::GetCapturedStderr().find("订单.html"), std::string::npos);
  EXPECT_EQ(desktop_->MessagesShown(), 1);
  Surface().PrintDoc();
  EXPECT_TRUE(printed);
}

TEST_F(Desktop, RefusesAnExportFormatThatItDoesNotKnow) {
  Start();
  Surface().PutExportFile("order.doc");
  Surface().PutExportFormat(7);
  testing::internal::CaptureStderr();
  MakeDocument(1);
  EXPECT_NE(testing::internal::GetCapturedStderr().find("7"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("state")));
}

TEST_F(Desktop, FailsWhereAWindowWouldBeNeeded) {
  Start();
  EXPECT_EQ(NumberOf([&] { frame_->ShowModal(); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { Surface().ShowPageSetup(1); }), kInvalidCall);
  frame_->Unload();
  frame_->Unload();
}

TEST_F(Desktop, RefusesAPrinterThatTheMachineDoesNotHave) {
  DesktopOptions options;
  options.printer = "nowhere";
  EXPECT_EQ(NumberOf([&] { Start(std::move(options)); }), kInvalidProperty);
}

TEST_F(Desktop, MakesBothPrintWindowsAndNoOther) {
  Start();
  EXPECT_NE(desktop_->Get().windows.CreatePrintFrame("frmTdPrint_GroupByStockArea"), nullptr);
  EXPECT_EQ(NumberOf([&] { (void)desktop_->Get().windows.CreatePrintFrame("frmOther"); }),
            kInvalidCall);
}

TEST_F(Desktop, StartsWithTheSurfacesOwnMarginsAndAnEmptyMemo) {
  Start();
  EXPECT_EQ(Surface().MarginLeft(), 1440);
  EXPECT_EQ(frame_->MemoText(), "");
  EXPECT_EQ(frame_->MemoTextRtf(), "");
  EXPECT_NE(frame_->BarcodeMaker().GetPicture(), nullptr);
}

TEST_F(Desktop, FailsOnAConnectionTextThatNoEngineKnows) {
  Start();
  Database& database = desktop_->Get().database;
  EXPECT_EQ(NumberOf([&] { (void)database.OpenQuery("Provider=Abacus", "select 1"); }),
            kDatabaseFailed);
  EXPECT_EQ(NumberOf([&] { (void)database.Connect("Provider=Abacus"); }), kDatabaseFailed);
}

}  // namespace
}  // namespace td
