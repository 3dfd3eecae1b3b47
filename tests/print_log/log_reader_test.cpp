#include "print_log/log_reader.h"

#include <gtest/gtest.h>

#include <sstream>

#include "print_log/log_time.h"

namespace td {
namespace {

PrintRecord Record(const std::string& time, const std::string& user,
                   std::vector<std::string> bills) {
  PrintRecord record;
  record.time = *ParseLogTime(time);
  record.user = user;
  record.bills = std::move(bills);
  record.billType = 21;
  record.format = "订单";
  record.printer = "PR-1";
  return record;
}

class Log : public testing::Test {
 protected:
  // The users of the records that answer.
  std::vector<std::string> Ask(const LogQuestion& question) {
    std::istringstream log(text_);
    std::vector<std::string> users;
    broken_ = ReadLog(log, question, [&](const PrintRecord& record, const std::string& line) {
      EXPECT_EQ(RecordOf(line), record);
      users.push_back(record.user);
    });
    return users;
  }

  std::string text_ = LineOf(Record("2024-03-01T01:00:00Z", "zhang", {"XD-1", "XD-2"})) +
                      LineOf(Record("2024-03-01T02:00:00Z", "li", {"XD-3"})) +
                      LineOf(Record("2024-03-01T03:00:00Z", "wang", {}));
  std::vector<std::size_t> broken_;
};

using Users = std::vector<std::string>;

TEST_F(Log, GivesAllThatMeetsTheWholeQuestion) {
  LogQuestion question;
  EXPECT_EQ(Ask(question), (Users{"zhang", "li", "wang"}));
  question.bill = "XD-";
  EXPECT_EQ(Ask(question), Users()) << "a whole number";
  question.bill = "XD-2";
  EXPECT_EQ(Ask(question), (Users{"zhang"}));
  question.user = "li";
  EXPECT_EQ(Ask(question), Users());
}

TEST_F(Log, EachPartOfAQuestionCounts) {
  LogQuestion question;
  question.billType = 21;
  question.format = "订单";
  question.printer = "PR-1";
  question.user = "li";
  EXPECT_EQ(Ask(question), (Users{"li"}));
  const auto withAnother = [&](auto change) {
    LogQuestion other = question;
    change(other);
    return Ask(other);
  };
  EXPECT_EQ(withAnother([](LogQuestion& other) { other.billType = 22; }), Users());
  EXPECT_EQ(withAnother([](LogQuestion& other) { other.format = "订"; }), Users());
  EXPECT_EQ(withAnother([](LogQuestion& other) { other.printer = "PR-2"; }), Users());
}

TEST_F(Log, SinceIsWithItsMomentAndBeforeIsWithout) {
  const LogTime two = *ParseLogTime("2024-03-01T10:00:00+08:00");
  LogQuestion since;
  since.since = two;
  EXPECT_EQ(Ask(since), (Users{"li", "wang"}));
  LogQuestion before;
  before.before = two;
  EXPECT_EQ(Ask(before), (Users{"zhang"}));
}

TEST_F(Log, BrokenLinesAreToldAndPassedOver) {
  text_.insert(0, "\n{\"time\":\"2024\n");
  text_ += "\n\xFF\n" + LineOf(Record("2024-03-01T04:00:00Z", "zhao", {})).substr(0, 30);
  EXPECT_EQ(Ask({}), (Users{"zhang", "li", "wang"}));
  EXPECT_EQ(broken_, (std::vector<std::size_t>{2, 7, 8})) << "empty lines are none";
}

}  // namespace
}  // namespace td
