// A print as a line of the log, and back.
#include "print_log/print_record.h"

#include <gtest/gtest.h>

#include "print_log/log_time.h"

namespace td {
namespace {

PrintRecord FullRecord() {
  return {.time = *ParseLogTime("2024-03-01T09:30:00.125+08:00"),
          .user = "zhang",
          .machine = "counter-3",
          .address = "192.168.1.33",
          .program = "tdprint",
          .billType = 21,
          .format = "销售订单三联",
          .bills = {"XD-2403-0002", "A\"\\\n\t4"},
          .pages = 3,
          .printer = "针式打印机",
          .jobs = {17, 18},
          .file = "/tmp/订单.pdf",
          .result = std::string(log_results::kPrinted),
          .reason = "无",
          .messages = {{"类型不匹配", "format 销售订单三联, row 2"}, {"溢出", ""}},
          .complaints = {"不认识纸张编号 77"},
          .seconds = 1.25};
}

TEST(PrintRecords, ComeBackFromTheirLineAsTheyWere) {
  const std::string line = LineOf(FullRecord());
  EXPECT_EQ(line.find('\n'), line.size() - 1) << "one line, whatever the texts hold";
  EXPECT_EQ(RecordOf(line), FullRecord());
  EXPECT_EQ(RecordOf(line.substr(0, line.size() - 1)), FullRecord());
}

TEST(PrintRecords, HaveTheirMembersInOneOrderAndLeaveOutWhatIsEmpty) {
  PrintRecord record;
  record.time = *ParseLogTime("2024-03-01T01:30:00.000Z");
  record.user = "zhang";
  record.result = std::string(log_results::kNotPrinted);
  record.messages = {{"溢出", ""}};
  std::string line = LineOf(record);
  line.replace(9, 29, "…");
  EXPECT_EQ(line,
            R"({"time":"…","user":"zhang","machine":"","address":"","program":"","billType":0,)"
            R"("pages":0,"result":"not printed","messages":[{"text":"溢出"}],"seconds":0.0})"
            "\n");
}

TEST(PrintRecords, BytesThatAreNoCharactersDoNotSpoilTheLine) {
  PrintRecord record = FullRecord();
  record.bills = {"A\xFF"};
  const auto read = RecordOf(LineOf(record));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->bills, (std::vector<std::string>{"A\uFFFD"}));
}

TEST(PrintRecords, WhatIsNoRecordIsNone) {
  const std::string line = LineOf(FullRecord());
  for (const std::string& text :
       {std::string(), std::string("{}"), std::string("[]"), std::string("null"),
        std::string("{\"time\":7}"), std::string("{\"time\":\"yesterday\"}"), line.substr(0, 40),
        line.substr(40), line + line, std::string("\xFF\xFE")}) {
    EXPECT_EQ(RecordOf(text), std::nullopt) << text;
  }
}

TEST(PrintRecords, MembersOfAnotherKindAreEmptyAndUnknownOnesPassedOver) {
  const auto record = RecordOf(
      R"({"time":"2024-03-01T09:30:00.125+08:00","user":7,"billType":"21","bills":["A",5],)"
      R"("jobs":"3","messages":[4,{"text":"溢出"}],"colour":{"ink":1}})");
  ASSERT_TRUE(record);
  EXPECT_EQ(record->user, "");
  EXPECT_EQ(record->billType, 0);
  EXPECT_EQ(record->bills, (std::vector<std::string>{"A"}));
  EXPECT_TRUE(record->jobs.empty());
  EXPECT_EQ(record->messages, (std::vector<LoggedMessage>{{"溢出", ""}}));
}

}  // namespace
}  // namespace td
