// One set of scenarios on each engine: what the component asks of its surroundings is the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "engine_runs.h"
#include "platform/failure.h"
#include "recording/record_print.h"
#include "scenario_tables.h"

namespace td {
namespace {

// Each sample print on the embedded engine, for all servers.
const Lines& EmbeddedTraceOf(const SamplePrint& print) {
  static std::map<std::string, Lines> traces;
  Lines& trace = traces[print.name];
  if (trace.empty()) {
    trace = TraceOf(PrintOf(print, RowsOf(print, SampleEngine::kSqlite)), SampleEngine::kSqlite);
  }
  return trace;
}

class OnServer : public testing::TestWithParam<SampleEngine> {
 protected:
  // Returns the trace that both have.
  static Lines ExpectSameAsEmbedded(const SamplePrint& print,
                                    const std::vector<recording::Fault>& faults = {}) {
    SCOPED_TRACE(print.name);
    const auto traceOn = [&](SampleEngine engine) {
      recording::Scenario scenario = PrintOf(print, RowsOf(print, engine));
      scenario.faults = faults;
      return TraceOf(scenario, engine);
    };
    Lines expected = traceOn(SampleEngine::kSqlite);
    ExpectSame(traceOn(GetParam()), expected);
    return expected;
  }
};

INSTANTIATE_TEST_SUITE_P(Servers, OnServer,
                         testing::Values(SampleEngine::kPostgreSql, SampleEngine::kMariaDb),
                         NameOfEngine);

TEST_P(OnServer, EverySamplePrintHasTheSameTrace) {
  for (const SamplePrint& print : Prints()) {
    SCOPED_TRACE(print.name);
    const Lines trace = TraceOf(PrintOf(print, RowsOf(print, GetParam())), GetParam());
    ExpectSame(trace, EmbeddedTraceOf(print));
    // The recording has no file of the mark on the sheet of all fields.
    const bool lacksPicture = print.name == "field-sheet";
    EXPECT_EQ(MessagesIn(trace).empty(), !lacksPicture);
    EXPECT_GT(trace.size(), 20U);
  }
}

TEST_P(OnServer, EachSamplePrintIsRecordedAsItPrints) {
  for (const SamplePrint& print : Prints()) {
    SCOPED_TRACE(print.name);
    recording::RecordedRequest request;
    request.connection = SampleOn(GetParam());
    request.billType = print.billType;
    request.format = print.format;
    request.onlyVariantItems = print.onlyVariant;
    request.blankRows = print.blankRows;
    request.byArea = print.byArea;
    request.machine = recording::Scenario().machine;
    const recording::RecordedPrint recorded =
        RecordPrint(Engines(), request, RowsOf(print, GetParam()));
    EXPECT_EQ(recorded.difference, "");
  }
}

TEST_P(OnServer, FailuresHaveTheSameTrace) {
  const auto fault = [](const char* on, int nth, int times, int number, const char* description) {
    return recording::Fault{on, nth, times, number, description, std::nullopt};
  };
  for (const recording::Fault& each : {fault("query", 1, 3, kDatabaseFailed, "表被锁定"),
                                       fault("query", 6, 2, kDatabaseFailed, "表被锁定"),
                                       fault("query", 4, 1, kDatabaseFailed, "磁盘已满"),
                                       fault("query", 5, 1, kInvalidUseOfNull, "无效使用 Null"),
                                       fault("query", 7, 1, kNoSuchColumn, "找不到列"),
                                       fault("TextBox", 9, 1, kInvalidCall, "不能画"),
                                       fault("clone", 1, 1, kInvalidCall, "没有")}) {
    SCOPED_TRACE(each.on + " " + std::to_string(each.nth));
    EXPECT_GT(ExpectSameAsEmbedded(PrintNamed("sales-order-5-lines"), {each}).size(), 2U);
  }
}

TEST_P(OnServer, AMissingFormatHasTheSameTrace) {
  SamplePrint print = PrintNamed("sales-order-5-lines");
  print.format = "没有";
  EXPECT_EQ(MessagesIn(ExpectSameAsEmbedded(print)), Lines{"未指定套打格式，打印被取消！"});
}

// What the user of each dialog chooses is stored, and printed by.
TEST_P(OnServer, WhatIsSetInTheDialogsHasTheSameTrace) {
  const recording::Json dialogs = recording::ParseScenario(R"({"calls": [
    {"do": "TDSet", "TranType": 12, "user": [
      {"select": "cmbTdBillName", "text": "采购入库单A5"},
      {"set": "txtLeft", "value": "-56.7"}, {"set": "txtTop", "value": "12.5"},
      {"set": "txtHeader", "value": "-1599.5"}, {"set": "txtRowHeight", "value": "401.25"},
      {"set": "txtRowsPerPage", "value": "7.5"}, {"set": "txtQtysPerRow", "value": "3"},
      {"select": "cmbPrintDevice", "index": 2}, {"press": "cmdOk"}]},
    {"do": "frmAreaPrintSet", "user": [
      {"select": "cmbBillType", "index": 0}, {"select": "cmbPrintFmt", "index": 0},
      {"select": "cmbStockArea", "index": 1}, {"select": "cmbPrintDevice", "index": 3},
      {"press": "cmdOk"}, {"select": "cmbStockArea", "index": 0},
      {"select": "cmbStockArea", "index": 1}, {"press": "cmdExit"}]},
    {"do": "TDSet", "TranType": 12, "user": [{"press": "cmdExit"}]}]})");
  const recording::Json pageSetup = recording::ParseScenario(R"({"calls": [
    {"do": "DoPrint", "New_TranType": 12, "user": [
      {"key": "pageset", "confirm": true, "put": {
        "PaperSize": 256, "PaperWidth": 13663.25, "PaperHeight": 7937, "Orientation": 1,
        "MarginLeft": 0.00001, "Device": "P2"}}]}]})");
  const SamplePrint print = PrintNamed("purchase-receipt-26-lines");
  SamplePrint selected = print;
  selected.format.clear();
  const auto traceOn = [&](SampleEngine engine) {
    Lines trace = TraceOf(recording::ReadScenario(dialogs), engine);
    recording::Scenario preview = recording::ReadScenario(pageSetup);
    std::get<recording::Print>(preview.calls.front().action).data = RowsOf(print, engine);
    for (const recording::Scenario& scenario : {preview, PrintOf(selected, RowsOf(print, engine)),
                                                PrintOf(print, RowsOf(print, engine))}) {
      std::ranges::copy(TraceOf(scenario, engine), std::back_inserter(trace));
    }
    RenewSample(engine);
    return trace;
  };
  const Lines expected = traceOn(SampleEngine::kSqlite);
  EXPECT_EQ(MessagesIn(expected), Lines{"保存成功！"});
  EXPECT_EQ(
      std::ranges::count_if(
          expected, [](const std::string& line) { return line.starts_with(R"({"e":"execute)"); }),
      7);
  ExpectSame(traceOn(GetParam()), expected);
}

class OnEachEngine : public testing::TestWithParam<SampleEngine> {};
INSTANTIATE_TEST_SUITE_P(Engines, OnEachEngine, kEachEngine, NameOfEngine);

// The scenarios of the logic's own tests, with their tables in the engine.
TEST_P(OnEachEngine, AgreedRunsHaveTheirTrace) {
  const std::filesystem::path golden(QBTD_SOURCE_DIR "/tests/logic/golden");
  int count = 0;
  for (const auto& file : std::filesystem::directory_iterator(golden)) {
    if (file.path().extension() != ".json") continue;
    SCOPED_TRACE(file.path().stem());
    std::ifstream text(file.path());
    const recording::Json json =
        recording::ParseScenario({std::istreambuf_iterator<char>(text), {}});
    MakeTables(json.at("tables"), GetParam());
    const Lines trace = TraceOf(recording::ReadScenario(json), GetParam());
    std::ifstream expectedText(std::filesystem::path(file.path()).replace_extension(".trace"));
    Lines expected;
    for (std::string line; std::getline(expectedText, line);) expected.push_back(line);
    ExpectSame(trace, expected);
    ++count;
  }
  RenewSample(GetParam());
  EXPECT_GE(count, 6);
}

}  // namespace
}  // namespace td
