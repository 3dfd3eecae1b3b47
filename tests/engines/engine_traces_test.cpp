// One set of scenarios on each engine: what the component asks of its surroundings is the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>

#include "desktop/databases.h"
#include "platform/failure.h"
#include "recording/replay.h"
#include "sample_engine.h"
#include "sample_files.h"

namespace td {

// Names the sample in messages.
void PrintTo(const SamplePrint& print, std::ostream* out) {
  *out << print.name;
}

namespace {

using recording::Json;
using recording::LineText;
using recording::RealDatabase;
using recording::Recording;
using recording::ReplayOn;

using Lines = std::vector<std::string>;

Lines LinesOf(const Recording& recording) {
  Lines lines;
  for (const Json& line : recording.trace) lines.push_back(LineText(line));
  return lines;
}

// The first line in which a trace differs from the other, for a message that can be read.
void ExpectSame(const Lines& trace, const Lines& expected) {
  const auto [line, wanted] =
      std::mismatch(trace.begin(), trace.end(), expected.begin(), expected.end());
  if (line == trace.end() && wanted == expected.end()) return;
  ADD_FAILURE() << "line " << line - trace.begin() + 1 << " is\n  "
                << (line == trace.end() ? "(the end)" : *line) << "\nand not\n  "
                << (wanted == expected.end() ? "(the end)" : *wanted);
}

Databases& Engines() {
  static Databases databases;
  return databases;
}

std::vector<SamplePrint> Prints() {
  return ReadSamplePrints(std::filesystem::path(QBTD_SOURCE_DIR) / "examples");
}

recording::Scenario PrintOf(const SamplePrint& print, const RecordsetRef& rows) {
  recording::Print call;
  call.by_area = print.byArea;
  call.New_DoPrint = true;
  call.New_TranType = print.billType;
  call.New_OnlyPrintVariantItem = print.onlyVariant;
  call.TDBillName = print.format;
  call.data = rows;
  recording::Scenario scenario;
  scenario.calls.push_back({"PrintBlankRows", recording::SetBlankRows{print.blankRows}, {}});
  scenario.calls.push_back({"DoPrint", call, {}});
  return scenario;
}

Lines TraceOf(const SamplePrint& print, SampleEngine engine,
              const std::vector<recording::Fault>& faults = {}) {
  const std::string& connection = SampleOn(engine);
  recording::Scenario scenario =
      PrintOf(print, Engines().OpenQuery(connection, print.data, CursorType::kUnspecified,
                                         LockType::kUnspecified));
  scenario.faults = faults;
  return LinesOf(ReplayOn({Engines(), connection}, scenario));
}

class OnServer : public testing::TestWithParam<SampleEngine> {
 protected:
  void ExpectSameAsEmbedded(const SamplePrint& print,
                            const std::vector<recording::Fault>& faults = {}) {
    SCOPED_TRACE(print.name);
    const Lines expected = TraceOf(print, SampleEngine::kSqlite, faults);
    EXPECT_GT(expected.size(), 10U);
    ExpectSame(TraceOf(print, GetParam(), faults), expected);
  }
};

INSTANTIATE_TEST_SUITE_P(Servers, OnServer,
                         testing::Values(SampleEngine::kPostgreSql, SampleEngine::kMariaDb),
                         NameOfEngine);

TEST_P(OnServer, EverySamplePrintHasTheSameTrace) {
  for (const SamplePrint& print : Prints()) ExpectSameAsEmbedded(print);
}

TEST_P(OnServer, FailuresHaveTheSameTrace) {
  const SamplePrint print = Prints().front();
  const auto fault = [](const char* on, int nth, int times, int number, const char* description) {
    return recording::Fault{on, nth, times, number, description, std::nullopt};
  };
  for (const auto& faults : std::vector<std::vector<recording::Fault>>{
           {fault("query", 1, 3, kDatabaseFailed, "表被锁定")},
           {fault("query", 6, 2, kDatabaseFailed, "表被锁定")},
           {fault("query", 4, 1, kDatabaseFailed, "磁盘已满")},
           {fault("query", 5, 1, kInvalidUseOfNull, "无效使用 Null")},
           {fault("query", 7, 1, kNoSuchColumn, "找不到列")},
           {fault("TextBox", 9, 1, kInvalidCall, "不能画")},
           {fault("clone", 1, 1, kInvalidCall, "不能克隆")}}) {
    SCOPED_TRACE(faults.front().on + " " + std::to_string(faults.front().nth));
    ExpectSameAsEmbedded(print, faults);
  }
}

TEST_P(OnServer, AMissingFormatHasTheSameTrace) {
  SamplePrint print = Prints().front();
  print.format = "没有";
  const Lines expected = TraceOf(print, SampleEngine::kSqlite);
  ExpectSame(TraceOf(print, GetParam()), expected);
  EXPECT_NE(std::ranges::find_if(expected,
                                 [](const std::string& line) {
                                   return line.find("未指定套打格式") != std::string::npos;
                                 }),
            expected.end());
}

}  // namespace
}  // namespace td
