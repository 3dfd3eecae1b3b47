// Servers that go away in the middle of a print.
#include <gtest/gtest.h>

#include "database_servers.h"
#include "engine_runs.h"
#include "platform/failure.h"
#include "watched_database.h"

namespace td {
namespace {

class Restart : public testing::TestWithParam<SampleEngine> {
 protected:
  [[nodiscard]] static Server ServerOf() {
    return GetParam() == SampleEngine::kPostgreSql ? Server::kPostgreSql : Server::kMariaDb;
  }

  SamplePrint print_ = PrintNamed("sales-order-26-lines");
  recording::Scenario scenario_ = PrintOf(print_, RowsOf(print_, GetParam()));
  Lines undisturbed_ = TraceOf(scenario_, GetParam());
  // A request of the second page.
  static constexpr int kOnSecondPage = 25;
};

INSTANTIATE_TEST_SUITE_P(Servers, Restart,
                         testing::Values(SampleEngine::kPostgreSql, SampleEngine::kMariaDb),
                         NameOfEngine);

TEST_P(Restart, BetweenTwoPagesIsNotNoticed) {
  int requests = 0;
  WatchedDatabase watched(
      Engines(),
      [&](const std::string& /*sql*/) {
        if (++requests != kOnSecondPage) return;
        StopServer(ServerOf());
        StartServer(ServerOf());
      },
      [](const Failure& /*failure*/) {});
  ExpectSame(TraceOf(scenario_, GetParam(), watched), undisturbed_);
  EXPECT_GT(requests, kOnSecondPage);
}

TEST_P(Restart, WhileAPageIsDrawnCostsOneMessage) {
  int requests = 0;
  std::vector<std::string> failures;
  WatchedDatabase watched(
      Engines(),
      [&](const std::string& /*sql*/) {
        if (++requests == kOnSecondPage) StopServer(ServerOf());
      },
      [&](const Failure& failure) {
        failures.push_back(failure.Description());
        StartServer(ServerOf());
      });
  const Lines trace = TraceOf(scenario_, GetParam(), watched);
  EXPECT_EQ(failures.size(), 1U);
  EXPECT_EQ(MessagesIn(trace), failures);
  ExpectSame(TraceOf(scenario_, GetParam()), undisturbed_);
}

TEST_P(Restart, ThatNeverEndsShowsMessagesAndNoPassword) {
  int requests = 0;
  WatchedDatabase watched(
      Engines(),
      [&](const std::string& /*sql*/) {
        if (++requests == kOnSecondPage) StopServer(ServerOf());
      },
      [](const Failure& /*failure*/) {});
  const Lines trace = TraceOf(scenario_, GetParam(), watched);
  StartServer(ServerOf());
  EXPECT_FALSE(MessagesIn(trace).empty());
  for (const std::string& line : trace) {
    EXPECT_EQ(line.find("geheim"), std::string::npos) << line;
    EXPECT_EQ(line.find("锁"), std::string::npos) << line;
  }
}

// The wrong password of a caller shows up nowhere.
TEST_P(Restart, OfAPrintWithAnotherPasswordShowsNone) {
  std::string wrong = SampleOn(GetParam());
  const std::string right = "PWD={geheim;}}1}";
  wrong.replace(wrong.find(right), right.size(), "PWD={verborgen;}}2}");
  for (const auto& line : recording::ReplayOn({Engines(), wrong}, scenario_).trace) {
    EXPECT_EQ(recording::LineText(line).find("verborgen"), std::string::npos);
  }
}

}  // namespace
}  // namespace td
