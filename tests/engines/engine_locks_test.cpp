// Real locks of a second connection in the way of a print: it waits, tries again and completes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "engine_runs.h"
#include "platform/failure.h"
#include "table_lock.h"
#include "watched_database.h"

namespace td {
namespace {

bool SaysLocked(const std::string& description) {
  return description.find("锁") != std::string::npos;
}

class Locks : public testing::TestWithParam<SampleEngine> {
 protected:
  [[nodiscard]] static std::unique_ptr<Connection> Connect() {
    return Engines().Connect(SampleOn(GetParam()));
  }

  // What keeps everybody else from writing a row.
  static void LockRow(Connection& holder, const std::string& update) {
    holder.Execute("begin");
    holder.Execute(update);
  }

  // Runs a scenario; each failure of its requests is noted, and the second one calls `release`.
  static Lines RunUntilReleased(
      const recording::Scenario& scenario, std::vector<std::string>& failures,
      const std::function<void()>& release,
      const WatchedDatabase::Before& before = [](const auto&) {}) {
    WatchedDatabase watched(Engines(), before, [&](const Failure& failure) {
      failures.push_back(failure.Description());
      if (failures.size() == 2) release();
    });
    return TraceOf(scenario, GetParam(), watched);
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, Locks, kEachEngine, NameOfEngine);

TEST_P(Locks, APrintThatNeedsALockedTableCompletesWhenItIsFree) {
  const SamplePrint print = PrintNamed("sales-order-26-lines");
  const recording::Scenario scenario = PrintOf(print, RowsOf(print, GetParam()));
  const Lines undisturbed = TraceOf(scenario, GetParam());

  for (const std::string table : {"TDBill", "TDBillDetail"}) {
    SCOPED_TRACE(table);
    TableLock lock(Engines(), GetParam(), table);
    std::vector<std::string> failures;
    Lines trace = RunUntilReleased(scenario, failures, [&] { lock.Release(); });
    ASSERT_EQ(failures.size(), 2U);
    EXPECT_TRUE(std::ranges::all_of(failures, SaysLocked)) << failures.front();
    EXPECT_GT(trace.size(), undisturbed.size());
    trace.erase(std::unique(trace.begin(), trace.end()), trace.end());
    Lines expected = undisturbed;
    expected.erase(std::unique(expected.begin(), expected.end()), expected.end());
    ExpectSame(trace, expected);
  }
}

TEST_P(Locks, TakenBetweenTwoPagesOnlyDelayTheSecond) {
  const SamplePrint print = PrintNamed("sales-order-26-lines");
  const recording::Scenario scenario = PrintOf(print, RowsOf(print, GetParam()));
  std::optional<TableLock> lock;
  std::vector<std::string> failures;
  int requests = 0;
  const Lines trace = RunUntilReleased(
      scenario, failures, [&] { lock->Release(); },
      [&](const std::string& /*sql*/) {
        if (++requests == 20) lock.emplace(Engines(), GetParam(), "TDBillDetail");
      });
  EXPECT_EQ(failures.size(), 2U);
  EXPECT_EQ(MessagesIn(trace), Lines());
  EXPECT_NE(trace.back().find(R"("PrintOk":true)"), std::string::npos) << trace.back();
}

TEST_P(Locks, OfARowThatASettingsDialogSavesOnlyDelayIt) {
  const recording::Json json = recording::ParseScenario(R"({"calls": [
    {"do": "TDSet", "TranType": 12, "user": [
      {"set": "txtLeft", "value": "77"}, {"press": "cmdOk"}]}]})");
  const auto holder = Connect();
  LockRow(*holder, "update TDBill set FAdjuctTop=5 where FTranType=12");
  std::vector<std::string> failures;
  const Lines trace =
      RunUntilReleased(recording::ReadScenario(json), failures, [&] { holder->Execute("commit"); });
  EXPECT_EQ(failures.size(), 2U);
  EXPECT_TRUE(std::ranges::all_of(failures, SaysLocked)) << failures.front();
  EXPECT_EQ(MessagesIn(trace), Lines());
  const RecordsetRef row =
      Engines().OpenQuery(SampleOn(GetParam()), "select FAdjuctLeft from TDBill where FTranType=12",
                          CursorType::kUnspecified, LockType::kUnspecified);
  EXPECT_EQ(std::get<double>(row->Field("FAdjuctLeft")), 77);
  RenewSample(GetParam());
}

// Page setup has no retry: its one failure is shown.
TEST_P(Locks, InTheWayOfPageSetupAreShown) {
  const SamplePrint print = PrintNamed("purchase-receipt-1-line");
  const recording::Json json = recording::ParseScenario(R"({"calls": [
    {"do": "DoPrint", "New_TranType": 12, "user": [{"key": "pageset", "confirm": true}]}]})");
  recording::Scenario scenario = recording::ReadScenario(json);
  std::get<recording::Print>(scenario.calls.front().action).data = RowsOf(print, GetParam());
  const auto holder = Connect();
  std::vector<std::string> failures;
  const Lines trace = RunUntilReleased(
      scenario, failures, [] {},
      [&](const std::string& sql) {
        if (sql.starts_with("Update TDBill set FMarginleft")) {
          LockRow(*holder, "update TDBill set FAdjuctTop=FAdjuctTop where FTranType=12");
        }
      });
  ASSERT_EQ(failures.size(), 1U);
  EXPECT_TRUE(SaysLocked(failures.front())) << failures.front();
  EXPECT_EQ(MessagesIn(trace), failures);
}

// A failure that only quotes the character is shown once, and not tried for ever.
TEST_P(Locks, AreNotSeenInADescriptionThatQuotesTheirCharacter) {
  SamplePrint print = PrintNamed("sales-order-5-lines");
  print.format = "三联'锁";
  std::vector<std::string> failures;
  const Lines trace = RunUntilReleased(PrintOf(print, RowsOf(print, GetParam())), failures, [] {});
  ASSERT_EQ(failures.size(), 1U);
  EXPECT_FALSE(SaysLocked(failures.front())) << failures.front();
  EXPECT_EQ(MessagesIn(trace), failures);
}

}  // namespace
}  // namespace td
