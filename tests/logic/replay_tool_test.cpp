// td_replay as a program: its exit codes and what it writes where.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "scenario.h"

namespace td {
namespace {

struct Outcome {
  int exitCode = -1;
  std::string output;
  std::string complaint;
};

class ReplayTool : public testing::Test {
 protected:
  void SetUp() override {
    folder_ =
        std::filesystem::path(testing::TempDir()) /
        ("td_replay_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::string Write(const std::string& text) const {
    std::ofstream(folder_ / "scenario.json", std::ios::binary) << text;
    return (folder_ / "scenario.json").string();
  }

  [[nodiscard]] Outcome Run(const std::string& arguments) const {
    const std::string command = "'" TD_REPLAY_PROGRAM "' " + arguments + " >'" +
                                (folder_ / "out").string() + "' 2>'" + (folder_ / "err").string() +
                                "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read("out"), Read("err")};
  }

  [[nodiscard]] Outcome Replay(const std::string& scenario) const {
    const std::string path = Write(scenario);
    return Run("'" + path + "'");
  }

 private:
  [[nodiscard]] std::string Read(const char* name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  std::filesystem::path folder_;
};

void ExpectRefused(const Outcome& outcome) {
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_EQ(outcome.output, "");
  EXPECT_GT(outcome.complaint.size(), 1U);
  EXPECT_EQ(outcome.complaint.find('\n'), outcome.complaint.size() - 1) << outcome.complaint;
}

TEST_F(ReplayTool, WritesOneLineOfJsonForEachRequest) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "标签\n\"锁\""}});
  const Outcome outcome = Replay(scenario.Document().dump());
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.complaint, "");
  EXPECT_EQ(outcome.output, scenario.Run().Text());
  EXPECT_NE(
      outcome.output.find(R"({"e":"call","f":"TextBox","a":["标签\n\"锁\"",100,1000,500,200,0]})"),
      std::string::npos)
      << outcome.output;
}

TEST_F(ReplayTool, SucceedsWhateverMessagesTheScenarioShows) {
  const Outcome outcome = Replay(Scenario().Format({{"FSelected", 0}}).Document().dump());
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_NE(outcome.output.find("未指定套打格式，打印被取消！"), std::string::npos);
}

TEST_F(ReplayTool, RunsAScenarioWithoutCalls) {
  const Outcome outcome = Replay(R"({"calls":[]})");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.output, "");
}

TEST_F(ReplayTool, RefusesWhatIsNoScenario) {
  for (const char* text : {"", "{", "[]", "null", "{}", R"({"calls":{}})", R"({"calls":[1]})",
                           R"({"calls":[{"do":"Dance"}]})", "{\"calls\":[\n}\n"}) {
    SCOPED_TRACE(text);
    ExpectRefused(Replay(text));
  }
}

TEST_F(ReplayTool, RunsNothingWhenALaterCallCantBeRead) {
  Scenario scenario;
  scenario.Print().Print({{"New_TranType", "21"}});
  ExpectRefused(Replay(scenario.Document().dump()));
}

TEST_F(ReplayTool, RefusesAMissingFileAFolderAndNoFileAtAll) {
  ExpectRefused(Run("/nowhere/scenario.json"));
  ExpectRefused(Run("/"));
  ExpectRefused(Run(""));
  ExpectRefused(Run("a b"));
}

TEST_F(ReplayTool, PrintsTheExampleOfItsGuide) {
  std::ifstream file(QBTD_SOURCE_DIR "/docs/replay.md");
  const std::string guide{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const std::string fence = "```";
  const std::size_t start = guide.find(fence + "json") + fence.size() + 4;
  const std::string example = guide.substr(start, guide.find(fence, start) - start);
  const Outcome outcome = Replay(example);
  EXPECT_EQ(outcome.exitCode, 0) << outcome.complaint;
  EXPECT_NE(outcome.output.find(R"("a":["螺丝",100,1000,500,200)"), std::string::npos);
  EXPECT_NE(outcome.output.find(R"("a":["螺母",100,1300,500,200)"), std::string::npos);
}

TEST_F(ReplayTool, TellsHowItIsUsed) {
  const Outcome outcome = Run("--help");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_NE(outcome.output.find("SCENARIO.json"), std::string::npos);
}

}  // namespace
}  // namespace td
