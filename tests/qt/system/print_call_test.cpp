// Print calls of a C++ program on the whole platform, with real queues and without a display: what
// it is told, and what it is refused.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <thread>

#include "desktop/desktop_platform.h"
#include "memory_rows/memory_recordset.h"
#include "page_document/page_document.h"
#include "print_queue.h"
#include "service/printer.h"
#include "service/td_set.h"
#include "temporary_database.h"
#include "test_tools.h"
#include "two_row_format.h"

namespace td {
namespace {

// Rows of one bill that call the program back when the run goes on to the next.
class CallingRows : public Recordset {
 public:
  CallingRows(RecordsetRef rows, std::function<void()> onMoveNext)
      : rows_(std::move(rows)), onMoveNext_(std::move(onMoveNext)) {}
  bool Eof() override { return rows_->Eof(); }
  const Value& Field(std::string_view column) override { return rows_->Field(column); }
  void MoveNext() override {
    onMoveNext_();
    rows_->MoveNext();
  }
  void MoveFirst() override { rows_->MoveFirst(); }
  void Close() override { rows_->Close(); }
  RecordsetRef Clone() override { return rows_->Clone(); }

 private:
  RecordsetRef rows_;
  std::function<void()> onMoveNext_;
};

class PrintCall : public testing::Test {
 protected:
  void Start(DesktopOptions options = {}) {
    options.stateDirectory = folder_.File("state");
    desktop_ = std::make_unique<DesktopPlatform>(std::move(options));
    printer_ = std::make_unique<Printer>(desktop_->Get());
  }
  void StartOn(const std::string& printer) {
    DesktopOptions options;
    options.printer = printer;
    Start(std::move(options));
  }
  void StartWith(std::function<void(const PageDocument&)> sink) {
    DesktopOptions options;
    options.documentSink = std::move(sink);
    Start(std::move(options));
  }
  void Execute(const std::string& sql) { OtherUser(folder_.File("bills.db")).Run(sql); }

  static RecordsetRef Rows(int count) {
    const std::vector<Value> row = {std::int64_t{7}, Value("大米")};
    return std::make_shared<MemoryRecordset>(
        std::vector<std::string>{"FInterID", "FItemName"},
        std::vector<std::vector<Value>>(static_cast<std::size_t>(count), row));
  }
  void Print(const RecordsetRef& rows, bool atOnce = true, std::int16_t billType = 21) {
    printer_->DoPrint(atOnce, connection_, billType, false, false, rows);
  }
  // The number with which an action on another thread fails; 0 if it doesn't.
  template <class Action>
  static std::optional<Failure> OnAnotherThread(Action action) {
    std::optional<Failure> caught;
    std::thread([&] {
      try {
        action();
      } catch (const Failure& failure) {
        caught.emplace(failure);
      }
    }).join();
    return caught;
  }

  TemporaryFolder folder_;
  const std::string connection_ = MakeDatabase(
      folder_.File("bills.db"), ReadFile(QBTD_SOURCE_DIR "/examples/schema.sql") + kTwoRowFormat);
  std::unique_ptr<DesktopPlatform> desktop_;
  std::unique_ptr<Printer> printer_;
};

TEST_F(PrintCall, TellsWhereTheDocumentWent) {
  StartOn("QbTd-PDF");
  EXPECT_EQ(desktop_->LastDocument().delivery, Delivery::kNone);
  Print(Rows(3));
  const DocumentOutcome outcome = desktop_->LastDocument();
  EXPECT_EQ(outcome.pages, 2);
  EXPECT_EQ(outcome.delivery, Delivery::kPrinter);
  EXPECT_TRUE(outcome.IsDelivered());
  EXPECT_EQ(outcome.printer, "QbTd-PDF");
  EXPECT_EQ(outcome.reason, "");
  EXPECT_EQ(outcome.messages, 0);
  ASSERT_EQ(outcome.jobs.size(), 1U);
  EXPECT_EQ(SheetsOf(ResultOf(outcome.jobs[0])).size(), 2U) << "the job is the document's";
}

TEST_F(PrintCall, TellsThatTheQueueRefusedTheJobAndWhy) {
  StartOn("QbTd-Refusing");
  Print(Rows(1));
  EXPECT_TRUE(printer_->PrintOk()) << "it is set before the document is sent";
  const DocumentOutcome outcome = desktop_->LastDocument();
  EXPECT_EQ(outcome.pages, 1);
  EXPECT_EQ(outcome.delivery, Delivery::kRefused);
  EXPECT_FALSE(outcome.IsDelivered());
  EXPECT_EQ(outcome.printer, "QbTd-Refusing");
  EXPECT_NE(outcome.reason.find("QbTd-Refusing"), std::string::npos) << outcome.reason;
  EXPECT_TRUE(outcome.jobs.empty());
  EXPECT_EQ(outcome.messages, 1) << "the run shows the reason";
}

TEST_F(PrintCall, TellsOfTheSinkAndOfItsFailure) {
  bool fails = false;
  StartWith([&](const PageDocument&) {
    if (fails) throw Failure(kPathNotFound, "没有文件夹");
  });
  Print(Rows(1));
  EXPECT_EQ(desktop_->LastDocument().delivery, Delivery::kSink);
  EXPECT_EQ(desktop_->LastDocument().printer, "");
  fails = true;
  Print(Rows(1));
  EXPECT_EQ(desktop_->LastDocument().delivery, Delivery::kRefused);
  EXPECT_EQ(desktop_->LastDocument().reason, "没有文件夹");
}

TEST_F(PrintCall, ThatMakesNoDocumentTellsNothingOfTheOneBefore) {
  StartOn("QbTd-PDF");
  Print(Rows(1));
  EXPECT_TRUE(desktop_->LastDocument().IsDelivered());
  Print(Rows(1), true, 99);
  const DocumentOutcome outcome = desktop_->LastDocument();
  EXPECT_EQ(outcome.pages, 0);
  EXPECT_EQ(outcome.delivery, Delivery::kNone);
  EXPECT_TRUE(outcome.jobs.empty());
  EXPECT_EQ(outcome.messages, 1) << "no format is registered";
  EXPECT_EQ(desktop_->MessagesShown(), 1);
}

TEST_F(PrintCall, CountsTheMessagesOfItsOwnDocumentOnly) {
  StartOn("QbTd-PDF");
  Print(Rows(1), true, 99);
  Print(Rows(1));
  EXPECT_EQ(desktop_->LastDocument().messages, 0);
  EXPECT_EQ(desktop_->MessagesShown(), 1);
}

TEST_F(PrintCall, OfAPreviewWithoutADisplaySaysSo) {
  Start();
  testing::internal::CaptureStderr();
  Print(Rows(1), false);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "没有可用的显示，无法打开预览窗口。\n");
  EXPECT_FALSE(printer_->PrintOk());
  EXPECT_EQ(desktop_->LastDocument().messages, 1);
  EXPECT_EQ(desktop_->LastDocument().pages, 0);
}

TEST_F(PrintCall, GoesToAnotherQueueWithoutAWordWhenThePreferredPrinterIsNotInstalled) {
  Execute("update TDBill set FPrintDevice='QbTd-PFD'");
  Start();
  Print(Rows(1));
  EXPECT_EQ(desktop_->LastDocument().messages, 0);
  EXPECT_EQ(desktop_->LastDocument().printer, "QbTd-PDF") << "the default printer";
  EXPECT_TRUE(desktop_->HasPrinter("QbTd-PDF"));
  EXPECT_FALSE(desktop_->HasPrinter("QbTd-PFD"));
}

TEST_F(PrintCall, OnAnotherThreadIsRefusedBeforeAnythingIsTouched) {
  std::vector<std::size_t> documents;
  StartWith([&](const PageDocument& document) { documents.push_back(document.Pages().size()); });
  printer_->PrintBlankRows(1);
  Print(Rows(2));
  const std::vector<std::function<void()>> calls = {
      [&] { Print(Rows(4)); },
      [&] { printer_->DoPrint_GroupByArea(true, connection_, 99, false, false, Rows(4)); },
      [&] { printer_->PrintBlankRows(5); },
      [&] { (void)printer_->PrintOk(); },
      [&] { TDSet(desktop_->Get()).ShowSettings(connection_, 99); },
  };
  for (const auto& call : calls) {
    const std::optional<Failure> failure = OnAnotherThread(call);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Number(), kWrongThread);
    EXPECT_EQ(failure->Description(), "打印组件正被另一个线程使用，只能由首先使用它的线程调用。");
  }
  EXPECT_TRUE(printer_->PrintOk()) << "of the call before";
  EXPECT_EQ(desktop_->LastDocument().pages, 1);
  Print(Rows(4));
  EXPECT_EQ(documents, (std::vector<std::size_t>{1, 2})) << "no rows are left blank";
}

TEST_F(PrintCall, OnAnotherThreadDuringAPrintLosesNoPage) {
  std::size_t pages = 0;
  StartWith([&](const PageDocument& document) { pages = document.Pages().size(); });
  int refused = 0;
  Print(std::make_shared<CallingRows>(Rows(6), [&] {
    const std::optional<Failure> failure = OnAnotherThread([&] { Print(Rows(1)); });
    if (failure && failure->Number() == kWrongThread) ++refused;
  }));
  EXPECT_EQ(refused, 6);
  EXPECT_EQ(pages, 3U);
}

TEST_F(PrintCall, FromWithinAPrintIsRefusedAndTheFirstGoesOn) {
  std::size_t pages = 0;
  StartWith([&](const PageDocument& document) { pages = document.Pages().size(); });
  std::vector<std::string> said;
  const auto tryWithin = [&](const std::function<void()>& call) {
    try {
      call();
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kInvalidCall);
      said.push_back(failure.Description());
    }
  };
  Print(std::make_shared<CallingRows>(Rows(3), [&] {
    tryWithin([&] { Print(Rows(1), true, 99); });
    tryWithin([&] { TDSet(desktop_->Get()).ShowSettings(connection_, 99); });
  }));
  EXPECT_EQ(said, std::vector<std::string>(6, "打印、预览或设置尚未结束，不能再次调用。"));
  EXPECT_EQ(pages, 2U);
  EXPECT_TRUE(printer_->PrintOk());
  Print(Rows(1));
  EXPECT_EQ(pages, 1U) << "the next call is served again";
}

TEST_F(PrintCall, WithoutDataIsRefusedForThatBeforeAllElse) {
  Start();
  const std::optional<Failure> failure = OnAnotherThread([&] { Print(nullptr); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->Number(), kNothingToPrint);
}

TEST_F(PrintCall, ReadsTheRowsOfAQueryThatSomebodyElseWrote) {
  StartOn("QbTd-PDF");
  const std::string query = "select 7 as FInterID, FTDBillName as FItemName from TDBill";
  Print(desktop_->OpenReadOnly(connection_, query));
  EXPECT_EQ(desktop_->LastDocument().pages, 1);
  EXPECT_EQ(NumberOf([&] { (void)desktop_->OpenReadOnly(connection_, "delete from TDBill"); }),
            kDatabaseFailed);
  EXPECT_FALSE(desktop_->OpenReadOnly(connection_, query)->Eof());
}

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  setenv("LPDEST", "QbTd-PDF", 1);
  testing::InitGoogleTest(&argc, argv);
  if (!GTEST_FLAG_GET(list_tests)) testing::AddGlobalTestEnvironment(new td::PrintQueues);
  return RUN_ALL_TESTS();
}
