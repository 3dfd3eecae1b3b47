// A log that tdprint writes and looks up.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "program_run.h"
#include "scratch_folder.h"

namespace td {
namespace {

constexpr const char* kRows = "select * from v_sales_order where FInterID=21002";

class TdprintLog : public testing::Test {
 protected:
  TdprintLog() {
    unsetenv("QBTDPRINTER_LOG_FILE");
    std::ofstream(log_) << R"({"time":"2024-03-01T01:30:00.000Z","user":"zhang",)"
                           R"("machine":"counter-3","program":"shop","billType":21,)"
                           R"("format":"订单","bills":["XD-1","XD-2"],"pages":3,)"
                           R"("printer":"针式","jobs":[17,18],"result":"printed","seconds":0.5})"
                           "\n{\"time\":\"2024\n"
                           R"({"time":"2024-03-02T01:30:00.000Z","user":"li","machine":"pc",)"
                           R"("program":"tdprint","billType":22,"bills":["XC-1"],"pages":0,)"
                           R"("result":"not printed","messages":[{"text":"类型不匹配",)"
                           R"("place":"row 2"}],"complaints":["不认识纸张编号 7"],"seconds":0.25})"
                           "\n";
    setenv("TZ", "CST-8", 1);
  }
  ~TdprintLog() override { unsetenv("TZ"); }

  [[nodiscard]] ProgramResult Run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), TDPRINT_PROGRAM);
    return ProgramRun(arguments, folder_.Path()).Finish();
  }
  [[nodiscard]] ProgramResult Log(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "log");
    arguments.push_back(log_);
    return Run(arguments);
  }
  [[nodiscard]] bool Finds(const std::vector<std::string>& question,
                           const std::string& user) const {
    const ProgramResult result = Log(question);
    return result.status == 0 && result.out.find(user + " at ") != std::string::npos;
  }
  static std::string ContentOf(const std::string& path) {
    std::stringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
  }

  const ScratchFolder folder_;
  const std::string log_ = folder_ / "prints.log";
};

TEST_F(TdprintLog, SaysWhoPrintedABillWhenAndWhere) {
  const ProgramResult result = Log({"--bill", "XD-2"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out,
            "2024-03-01 09:30:00  zhang at counter-3  printed XD-1, XD-2 on 针式, job 17, 18  "
            "(订单, bill type 21, pages 3, 0.5 s, by shop)\n");
  EXPECT_EQ(result.err, "tdprint: lines that are no prints in " + log_ + ": 2\n");
}

TEST_F(TdprintLog, HasTheMessagesBelowTheirPrint) {
  EXPECT_EQ(
      Log({"--user", "li"}).out,
      "2024-03-02 09:30:00  li at pc  XC-1 was not printed  (no format, bill type 22, pages 0, "
      "0.25 s, by tdprint)\n"
      "    message: 类型不匹配 (row 2)\n"
      "    complaint: 不认识纸张编号 7\n");
}

TEST_F(TdprintLog, SpeaksTheLanguageOfTheLocale) {
  const ProgramResult result =
      ProgramRun({"env", "LC_ALL=zh_CN.UTF-8", TDPRINT_PROGRAM, "log", "--bill", "XD-1", log_},
                 folder_.Path())
          .Finish();
  EXPECT_NE(result.out.find("在 针式 上打印了 XD-1, XD-2"), std::string::npos) << result.out;
}

TEST_F(TdprintLog, AsksByEachOption) {
  EXPECT_TRUE(Finds({"--type", "22"}, "li"));
  EXPECT_FALSE(Finds({"--type", "22"}, "zhang"));
  EXPECT_TRUE(Finds({"--format", "订单"}, "zhang"));
  EXPECT_TRUE(Finds({"--printer", "针式"}, "zhang"));
  EXPECT_TRUE(Finds({"--since", "2024-03-02"}, "li"));
  EXPECT_FALSE(Finds({"--since", "2024-03-02"}, "zhang"));
  EXPECT_TRUE(Finds({"--until", "2024-03-01"}, "zhang")) << "the whole day";
  EXPECT_FALSE(Finds({"--until", "2024-03-01"}, "li"));
  EXPECT_TRUE(Finds({"--since", "2024-03-01 09:30", "--until", "2024-03-01T09:30"}, "zhang"));
}

TEST_F(TdprintLog, GivesProgramsTheLinesAsTheyStand) {
  const std::string content = ContentOf(log_);
  EXPECT_EQ(Log({"--json", "--user", "zhang"}).out, content.substr(0, content.find('\n') + 1));
}

TEST_F(TdprintLog, NothingFoundAndNothingToReadAreToldApart) {
  ProgramResult result = Log({"--bill", "XD-9"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err.find("nothing found"), std::string::npos) << result.err;
  for (const std::string& file : {std::string(folder_ / "gone"), folder_.Path().string()}) {
    result = Run({"log", file});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tdprint: the log can't be read: " + file + "\n");
  }
  EXPECT_EQ(Run({"log"}).status, 2) << "no log is named";
  EXPECT_EQ(Log({"--since", "yesterday"}).status, 2);
  EXPECT_EQ(Log({"--bill", ""}).status, 2);
}

TEST_F(TdprintLog, SeveralLogsAreReadInTheirOrder) {
  const std::string older = folder_ / "prints.log.1";
  std::ofstream(older) << R"({"time":"2023-03-01T01:30:00.000Z","user":"wang","result":"printed"})"
                       << "\n";
  const ProgramResult result = Run({"log", older, log_});
  EXPECT_EQ(result.status, 0);
  EXPECT_LT(result.out.find("wang at"), result.out.find("zhang at"));
}

TEST_F(TdprintLog, APrintIsFoundInTheLogThatItWasToldOf) {
  const std::string database = folder_ / "sample.db";
  ASSERT_EQ(system(("'" TDPRINT_PROGRAM "' sample-sql --engine sqlite --samples '" QBTD_SOURCE_DIR
                    "/examples' | sqlite3 '" +
                    database + "'")
                       .c_str()),
            0);
  const std::string own = folder_ / "own.log";
  const std::string pdf = folder_ / "order.pdf";
  const std::vector<std::string> print = {
      "print", "--db", "sqlite:" + database, "--type", "21", "--data", kRows, "--pdf", pdf};
  std::vector<std::string> printWithLog = print;
  printWithLog.insert(printWithLog.end(), {"--log", own});
  ASSERT_EQ(Run(printWithLog).status, 0);
  setenv("QBTDPRINTER_LOG_FILE", own.c_str(), 1);
  ASSERT_EQ(Run(print).status, 0);
  const ProgramResult result = Run({"log", "--bill", "XD-2403-0002"});
  unsetenv("QBTDPRINTER_LOG_FILE");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 2) << result.out;
  EXPECT_NE(result.out.find("wrote XD-2403-0002 to " + pdf), std::string::npos) << result.out;
  EXPECT_EQ(ContentOf(own).find("sqlite:"), std::string::npos) << "no connection text";
}

TEST_F(TdprintLog, ALogThatCannotBeWrittenLeavesTheStatusAlone) {
  const std::string database = folder_ / "sample.db";
  ASSERT_EQ(system(("'" TDPRINT_PROGRAM "' sample-sql --engine sqlite --samples '" QBTD_SOURCE_DIR
                    "/examples' | sqlite3 '" +
                    database + "'")
                       .c_str()),
            0);
  const ProgramResult result =
      Run({"print", "--db", "sqlite:" + database, "--type", "21", "--data", kRows, "--pdf",
           folder_ / "order.pdf", "--log", folder_ / "none/prints.log"});
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.err.find("tdprint: the print isn't in the log: 无法写入打印日志"),
            std::string::npos)
      << result.err;
}

}  // namespace
}  // namespace td
