// The lines of the log that print calls leave.
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QGuiApplication>
#include <fstream>
#include <sstream>

#include "optioned_print.h"
#include "print_log/print_record.h"

namespace td {
namespace {

class PrintJournalTest : public OptionedPrint {
 protected:
  PrintJournalTest() {
    options_.logFile = log_;
    options_.sinkTarget = "订单.pdf";
    options_.onLogFailure = [this](const std::string& text) { failures_.push_back(text); };
  }
  static RecordsetRef Bills(const std::vector<std::string>& numbers) {
    std::vector<std::vector<Value>> rows;
    for (const std::string& number : numbers) {
      rows.push_back({static_cast<std::int64_t>(rows.size() + 1), Value(number), Value("大米")});
    }
    return std::make_shared<MemoryRecordset>(
        std::vector<std::string>{"FInterID", "FBillNo", "FItemName"}, rows);
  }
  [[nodiscard]] std::vector<PrintRecord> Records() const {
    std::vector<PrintRecord> records;
    std::istringstream lines(ReadFile(log_));
    for (std::string line; std::getline(lines, line);) {
      const auto record = RecordOf(line);
      EXPECT_TRUE(record) << line;
      if (record) records.push_back(*record);
    }
    return records;
  }

  const std::string log_ = folder_.File("prints.log");
  std::vector<std::string> failures_;
};

TEST_F(PrintJournalTest, SaysWhoPrintedWhichBillsWhereAndWithWhatResult) {
  Start();
  QGuiApplication::setApplicationDisplayName("柜台");
  Print(Bills({"XD-1", "XD-1", "XD-2"}));
  QGuiApplication::setApplicationDisplayName({});
  ASSERT_EQ(Records().size(), 1U);
  const PrintRecord record = Records()[0];
  EXPECT_NE(record.user, "");
  EXPECT_NE(record.machine, "");
  EXPECT_EQ(record.address, desktop_->Get().machine.LocalMachineId());
  EXPECT_EQ(record.program, "柜台");
  EXPECT_EQ(record.billType, 21);
  EXPECT_EQ(record.format, "两行订单");
  EXPECT_EQ(record.bills, (std::vector<std::string>{"XD-1", "XD-2"}));
  EXPECT_EQ(record.pages, desktop_->LastDocument().pages);
  EXPECT_EQ(record.file, "订单.pdf");
  EXPECT_EQ(record.result, log_results::kWritten);
  EXPECT_TRUE(record.messages.empty());
  EXPECT_GT(record.seconds, 0);
}

TEST_F(PrintJournalTest, EachCallHasALineAlsoThatWhichPrintsNothing) {
  Start();
  Print(Bills({"XD-1"}));
  printer_->DoPrint(true, connection_, 21, false, false, Bills({"XD-2"}), "没有");
  Print(Bills({"XD-3"}));
  ASSERT_EQ(Records().size(), 3U);
  const PrintRecord record = Records()[1];
  EXPECT_EQ(record.result, log_results::kNotPrinted);
  EXPECT_EQ(record.format, "没有");
  EXPECT_EQ(record.pages, 0);
  EXPECT_EQ(record.file, "");
  ASSERT_EQ(record.messages.size(), 1U);
  EXPECT_EQ(record.messages[0].text, "未指定套打格式，打印被取消！");
  EXPECT_TRUE(Records()[2].messages.empty()) << "each call has its own";
}

TEST_F(PrintJournalTest, ARefusalHasItsReasonAndItsMessage) {
  options_.documentSink = [](const PageDocument&) { throw Failure(kDeviceIo, "磁盘空间不足"); };
  Start();
  Print(Bills({"XD-1"}));
  ASSERT_EQ(Records().size(), 1U);
  const PrintRecord record = Records()[0];
  EXPECT_EQ(record.result, log_results::kRefused);
  EXPECT_EQ(record.reason, "磁盘空间不足");
  ASSERT_EQ(record.messages.size(), 1U);
  EXPECT_EQ(record.messages[0].text, "磁盘空间不足");
  EXPECT_NE(record.messages[0].place.find("两行订单"), std::string::npos) << "and where";
  EXPECT_EQ(record.bills, (std::vector<std::string>{"XD-1"}));
}

TEST_F(PrintJournalTest, APreviewThatCannotBeShownIsNotPrinted) {
  Start();
  printer_->DoPrint(false, connection_, 21, false, false, Bills({"XD-1"}));
  ASSERT_EQ(Records().size(), 1U);
  EXPECT_EQ(Records()[0].result, log_results::kNotPrinted);
  EXPECT_EQ(Records()[0].messages.size(), 1U);
}

TEST_F(PrintJournalTest, AWindowThatIsOnlyMadeIsNoPrint) {
  Start();
  (void)desktop_->Get().windows.CreatePrintFrame("frmTdPrint")->Surface().Device();
  EXPECT_EQ(access(log_.c_str(), F_OK), -1);
}

TEST_F(PrintJournalTest, WhatTheDocumentGoesOnWithoutIsThereToo) {
  other_.Run("update TDBill set FPaperSize=12345");
  options_.onComplaint = [](const std::string&) {};
  Start();
  Print(Bills({"XD-1"}));
  ASSERT_EQ(Records().size(), 1U);
  ASSERT_EQ(Records()[0].complaints.size(), 1U);
  EXPECT_NE(Records()[0].complaints[0].find("12345"), std::string::npos);
}

TEST_F(PrintJournalTest, NeitherConnectionTextNorPasswordGetsIn) {
  options_.documentSink = [this](const PageDocument&) {
    throw Failure(kDeviceIo, "no way to " + connection_ + " with Password='top secret';x");
  };
  Start();
  Print(Bills({"XD-1"}));
  const std::string log = ReadFile(log_);
  EXPECT_EQ(log.find(connection_), std::string::npos) << log;
  EXPECT_EQ(log.find("secret"), std::string::npos) << log;
  ASSERT_EQ(Records().size(), 1U);
  EXPECT_EQ(Records()[0].reason, "no way to *** with Password=***;x");
  EXPECT_EQ(Records()[0].messages[0].text, Records()[0].reason);
}

TEST_F(PrintJournalTest, ALogThatCannotBeWrittenIsToldOnceAndStopsNothing) {
  options_.logFile = folder_.File("missing/prints.log");
  Start();
  Print(Bills({"XD-1"}));
  Print(Bills({"XD-2"}));
  EXPECT_EQ(documents_, 2);
  EXPECT_EQ(desktop_->LastDocument().messages, 0);
  ASSERT_EQ(failures_.size(), 1U);
  EXPECT_EQ(failures_[0], "无法写入打印日志“" + folder_.File("missing/prints.log") +
                              "”：文件或文件夹不存在。打印照常进行。");
  ASSERT_EQ(mkdir(folder_.File("missing").c_str(), 0700), 0);
  Print(Bills({"XD-3"}));
  ASSERT_EQ(unlink(folder_.File("missing/prints.log").c_str()), 0);
  ASSERT_EQ(rmdir(folder_.File("missing").c_str()), 0);
  Print(Bills({"XD-4"}));
  EXPECT_EQ(failures_.size(), 2U) << "it had been written again";
}

TEST_F(PrintJournalTest, TheEnvironmentNamesALogToo) {
  options_.logFile.reset();
  setenv("QBTDPRINTER_LOG_FILE", log_.c_str(), 1);
  Start();
  unsetenv("QBTDPRINTER_LOG_FILE");
  Print(Bills({"XD-1"}));
  EXPECT_EQ(Records().size(), 1U);

  options_.logFile = "";
  setenv("QBTDPRINTER_LOG_FILE", log_.c_str(), 1);
  desktop_->PutOptions(options_);
  Print(Bills({"XD-1"}));
  EXPECT_EQ(Records().size(), 1U) << "an option switches it off";

  options_.logFile.reset();
  setenv("QBTDPRINTER_LOG_FILE", "prints.log", 1);
  desktop_->PutOptions(options_);
  unsetenv("QBTDPRINTER_LOG_FILE");
  Print(Bills({"XD-1"}));
  EXPECT_EQ(documents_, 3);
  ASSERT_EQ(failures_.size(), 1U);
  EXPECT_NE(failures_[0].find("根文件夹"), std::string::npos) << "no folder of the moment";
}

TEST_F(PrintJournalTest, WithoutALogNothingIsWritten) {
  options_.logFile.reset();
  unsetenv("QBTDPRINTER_LOG_FILE");
  Start();
  Print(Bills({"XD-1"}));
  EXPECT_EQ(access(log_.c_str(), F_OK), -1);
}

}  // namespace
}  // namespace td
