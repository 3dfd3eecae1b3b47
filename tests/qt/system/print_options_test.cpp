// What a C++ program chooses for its print calls: where they go, how long they wait for locks, when
// they end before their time, and who gets their messages. On a machine without a display and
// without a printer.
#include <stdlib.h>

#include <future>
#include <stdexcept>
#include <thread>

#include "optioned_print.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

// Rows whose values are locked by somebody who never ends.
class LockedRows : public Recordset {
 public:
  explicit LockedRows(RecordsetRef rows) : rows_(std::move(rows)) {}
  bool Eof() override { return rows_->Eof(); }
  const Value& Field(std::string_view column) override {
    if (column == "FItemName") throw Failure(kDatabaseFailed, "行被锁定");
    return rows_->Field(column);
  }
  void MoveNext() override { rows_->MoveNext(); }
  void MoveFirst() override { rows_->MoveFirst(); }
  void Close() override { rows_->Close(); }
  RecordsetRef Clone() override { return rows_->Clone(); }

 private:
  RecordsetRef rows_;
};

using PrintOptions = OptionedPrint;

TEST_F(PrintOptions, ALimitedWaitForALockEndsThePrintInItsOwnWords) {
  options_.lockWaitLimit = 0;
  Start();
  Lock();
  Print(Rows(1));
  EXPECT_TRUE(Message().starts_with("等了 0 秒，要读写的数据仍被其他用户占用")) << Message();
  EXPECT_EQ(documents_, 0);
  Unlock();
  Print(Rows(1));
  EXPECT_EQ(desktop_->LastDocument().messages, 0);
  EXPECT_EQ(documents_, 1) << "the next print waits anew";
}

TEST_F(PrintOptions, AWaitThatNobodyLimitsGoesOnAsLongAsTheProgramSaysSo) {
  int tries = 0;
  options_.onLockWait = [&](double seconds) {
    EXPECT_GE(seconds, 0);
    if (++tries == 3) Unlock();
    return true;
  };
  Start();
  Lock();
  Print(Rows(1));
  EXPECT_EQ(tries, 3);
  EXPECT_EQ(desktop_->LastDocument().messages, 0);
  EXPECT_EQ(documents_, 1);
}

TEST_F(PrintOptions, TheProgramEndsAWaitByAnswerOrByException) {
  options_.onLockWait = [](double) { return false; };
  Start();
  Lock();
  Print(Rows(1));
  EXPECT_TRUE(Message().starts_with("已取消等待被其他用户占用的数据")) << Message();
  options_.onLockWait = [](double) -> bool { throw std::runtime_error("上锁太久"); };
  desktop_->PutOptions(options_);
  Print(Rows(1));
  EXPECT_EQ(Message(), "上鎖太久") << "a word of the program's is no lock conflict";
  EXPECT_EQ(documents_, 0);
  Unlock();
}

TEST_F(PrintOptions, ABillWhoseRowsStayLockedIsNotPrinted) {
  options_.lockWaitLimit = 0;
  Start();
  Print(desktop_->Limited(std::make_shared<LockedRows>(Rows(9))));
  const DocumentOutcome outcome = desktop_->LastDocument();
  EXPECT_EQ(documents_, 0);
  EXPECT_EQ(outcome.pages, 0) << "the first row ends the run";
  ASSERT_EQ(outcome.messages, 2) << "of the row, and of the run";
  EXPECT_TRUE(outcome.texts[0].ends_with("：行被鎖定")) << outcome.texts[0];
  EXPECT_EQ(outcome.texts[0], outcome.texts[1]);
}

TEST_F(PrintOptions, TheLimitHoldsForTheProgramsOwnQueriesOnAnyThread) {
  options_.lockWaitLimit = 0;
  Start();
  Lock();
  const auto failureOf = [this] {
    try {
      (void)desktop_->Get().database.OpenQuery(connection_, "select 1 from TDBill");
    } catch (const Failure& failure) {
      return std::pair(failure.Number(), IsLockConflict(failure));
    }
    return std::pair(0, false);
  };
  const auto expected = std::pair<int, bool>(kDatabaseFailed, false);
  EXPECT_EQ(failureOf(), expected);
  EXPECT_EQ(std::async(std::launch::async, failureOf).get(), expected);
  Unlock();
  Print(Rows(1));
  EXPECT_EQ(documents_, 1);
}

TEST_F(PrintOptions, WhatThePageCallThrowsEndsThePrintWhateverItsNumber) {
  int pages = 0;
  for (const int number : {int{kInvalidUseOfNull}, int{kNoSuchColumn}, int{kInvalidProperty}}) {
    options_.onPage = [&pages, number](int page) {
      pages = page;
      if (page == 2) throw Failure(number, "够了");
    };
    Start();
    Print(Rows(9));
    EXPECT_EQ(Message(), "够了") << number;
    EXPECT_EQ(pages, 2) << number;
    EXPECT_EQ(documents_, 0);
  }
}

TEST_F(PrintOptions, APrintIsCancelledFromAnotherThread) {
  options_.onPage = [this](int page) {
    if (page == 1) std::thread([this] { desktop_->CancelPrint(); }).join();
  };
  Start();
  Print(desktop_->Limited(Rows(9)));
  EXPECT_EQ(Message(), "打印被调用程序取消。");
  EXPECT_EQ(documents_, 0);
  desktop_->CancelPrint("between two prints nothing is cancelled");
  options_.onPage = nullptr;
  desktop_->PutOptions(options_);
  Print(Rows(9));
  EXPECT_EQ(documents_, 1);
}

TEST_F(PrintOptions, HoldFromTheNextPrintOn) {
  Start();
  Print(Rows(1));
  EXPECT_EQ(documents_, 1);
  int others = 0;
  options_.documentSink = [&](const PageDocument&) { ++others; };
  desktop_->PutOptions(options_);
  Print(Rows(1));
  EXPECT_EQ(documents_, 1);
  EXPECT_EQ(others, 1);

  options_.printer = "nowhere";
  EXPECT_EQ(NumberOf([&] { desktop_->PutOptions(options_); }), kInvalidProperty);
  Print(Rows(1));
  EXPECT_EQ(others, 2) << "the refused ones change nothing";
}

TEST_F(PrintOptions, MayBeChangedWithinAPrintForTheNextOne) {
  int others = 0;
  options_.onPage = [&](int) {
    DesktopOptions next = options_;
    next.onPage = nullptr;
    next.documentSink = [&](const PageDocument&) { ++others; };
    desktop_->PutOptions(next);
  };
  Start();
  Print(Rows(1));
  EXPECT_EQ(documents_, 1);
  Print(Rows(1));
  EXPECT_EQ(others, 1);
}

TEST_F(PrintOptions, CollectedMessagesAreShownToNobody) {
  Start();
  testing::internal::CaptureStderr();
  printer_->DoPrint(true, connection_, 99, false, false, Rows(1));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(Message(), "未指定套打格式，打印被取消！");
  EXPECT_EQ(desktop_->MessagesShown(), 1);
}

TEST_F(PrintOptions, WhatADocumentGoesOnWithoutIsInItsOutcome) {
  other_.Run("update TDBill set FPaperSize=12345");
  options_.onComplaint = [](const std::string&) {};
  Start();
  Print(Rows(1));
  const DocumentOutcome outcome = desktop_->LastDocument();
  ASSERT_EQ(outcome.complaints.size(), 1U);
  EXPECT_NE(outcome.complaints[0].find("12345"), std::string::npos);
  EXPECT_EQ(outcome.messages, 0);
}

}  // namespace
}  // namespace td

// Set before anything asks the printing system, which reads this once.
int main(int argc, char** argv) {
  setenv("CUPS_SERVER", "/nonexistent/cups.sock", 1);
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
