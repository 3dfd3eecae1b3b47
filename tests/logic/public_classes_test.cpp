// What a caller sees of the print calls.
#include <gtest/gtest.h>

#include <memory>
#include <variant>

#include "recording/recording_database.h"
#include "recording/recording_platform.h"
#include "scenario.h"
#include "service/printer.h"
#include "service/request.h"
#include "text/conversions.h"

namespace td {
namespace {

TEST(DoPrint, WithoutDataRaisesTheErrorAndChangesNothing) {
  Scenario scenario;
  scenario.FieldItem("FName").Print({{"TDBillName", "销售单"}});
  scenario.Print({{"data", nullptr}, {"New_TranType", 99}, {"TDBillName", "别的"}});
  const Trace trace = scenario.Run();
  ASSERT_EQ(trace.Lines("raised").size(), 1U);
  EXPECT_EQ(trace.Lines("raised")[0].at("number"), "0x800403e9");
  EXPECT_EQ(trace.Lines("raised")[0].at("description"), "没有可供打印的数据!");
  EXPECT_EQ(trace.After(1).at("PrintOk"), true) << "as the call before left it";
  EXPECT_EQ(trace.After(1).at("TDBillName"), "销售单");
}

TEST(DoPrint, SilentlyPrintsAndTellsSo) {
  Scenario scenario;
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Lines("show").empty());
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

TEST(DoPrint, APreviewThatWasOnlyLookedAtIsNotPrinted) {
  Scenario scenario;
  scenario.FieldItem("FName").Preview({"nextpage", "zoom"});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Lines("show").size(), 1U);
  EXPECT_EQ(trace.Lines("unload").size(), 1U);
  EXPECT_EQ(trace.Texts(), (std::vector<std::string>{"甲"}));
  EXPECT_TRUE(trace.Calls("PrintDoc").empty());
  EXPECT_EQ(trace.After().at("PrintOk"), false);
}

TEST(DoPrint, APreviewWhosePrintButtonWasPressedIsPrinted) {
  Scenario scenario;
  scenario.Preview({"print"});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("PrintDoc"), (Json{{true}})) << "with the dialog";
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

TEST(DoPrint, StartsWithPrintOkFalse) {
  Scenario scenario;
  scenario.Print().Preview();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.After(0).at("PrintOk"), true);
  EXPECT_EQ(trace.After(1).at("PrintOk"), false);
}

TEST(DoPrint, DataThatCannotBeClonedPrintsWithOneCursor) {
  Scenario scenario;
  scenario.FieldItem("FName").FieldItem("FName", {{"FSite", 4}, {"FTop", 1500}});
  scenario.Bills({2}).NoClone();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts().size(), 2U) << "behind the last row there is no bill to read";
  EXPECT_EQ(trace.After().at("PrintOk"), true);
  EXPECT_EQ(trace.After().at("row"), 0);
  EXPECT_EQ(trace.After().at("clone"), 0) << "the same cursor";
}

TEST(DoPrint, AnErrorThatLeavesTheWindowMakesTheCloneTheDataItself) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 1}}).Bills({3});
  // The report of a refused printer needs the machine's paper row; there is none, so it fails, too.
  scenario.Fault({{"on", "NewPage"}, {"number", 380}, {"description", "无效"}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty()) << "silent at this level";
  EXPECT_EQ(trace.After().at("PrintOk"), false);
  EXPECT_EQ(trace.After().at("row"), 1) << "where the run left it";
  EXPECT_EQ(trace.After().at("clone"), 1) << "the same cursor; a clone would stand on row 0";
}

TEST(DoPrint, AnErrorInTheFirstActivationEndsTheCallSilently) {
  Scenario scenario;
  scenario.Fault(
      {{"on", "query"}, {"number", 5}, {"description", "断开"}, {"match", "PrintAdvertising"}});
  scenario.Bills({1, 1}).Preview();
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty()) << "silent at this level";
  EXPECT_TRUE(trace.Calls("StartDoc").empty());
  EXPECT_TRUE(trace.Lines("unload").empty());
  EXPECT_EQ(trace.After().at("PrintOk"), false);
}

// A silent print with a printer of the caller's, which no scenario can name.
using PrintCall = decltype(&Printer::DoPrint);
std::vector<Json> LinesOf(PrintCall print, bool New_PrintBorder, Value* PrintDevice) {
  Scenario scenario;
  scenario.FieldItem("FName");
  recording::RecordingPlatform platform(recording::ReadScenario(scenario.Document()));
  const auto& call = std::get<recording::Print>(platform.GetScenario().calls.front().action);
  const auto& rows = std::get<recording::PrintRows>(call.data).table;
  const auto data = std::make_shared<recording::RecordingRecordset>(
      platform.GetRecorder(), std::make_shared<recording::TableData>(rows), true);
  Context() = PrintContext{};
  Printer printer(platform.Get());
  (printer.*print)(true, "", 21, false, New_PrintBorder, data, "", PrintDevice);
  EXPECT_TRUE(printer.PrintOk());
  Context() = PrintContext{};
  return platform.GetRecorder().TakeLines();
}

TEST(DoPrint, BorderAndPrintDeviceHaveNoEffect) {
  for (const PrintCall print : {&Printer::DoPrint, &Printer::DoPrint_GroupByArea}) {
    Value device = std::string("P2");
    const std::vector<Json> lines = LinesOf(print, false, nullptr);
    EXPECT_EQ(LinesOf(print, true, nullptr), lines);
    EXPECT_EQ(LinesOf(print, false, &device), lines);
    EXPECT_EQ(ToText(device), "P2");
  }
}

TEST(DoPrint, RunsTheSameDataAgainFromItsFirstRow) {
  Scenario scenario;
  scenario.FieldItem("FName").Bills({2}).Print().Print({{"data", "same"}});
  EXPECT_EQ(scenario.Run().Texts(), (std::vector<std::string>{"行1", "行2", "行1", "行2"}));
}

TEST(PrintBlankRows, AreKeptUntilARunUsesThem) {
  Scenario scenario;
  scenario.BlankRows(3).Print({{"data", nullptr}}).Bills({5}).Print();
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.After(1).at("PrintBlankRows"), 3) << "a call without data spends none";
  EXPECT_EQ(trace.After(2).at("PrintBlankRows"), 0);
}

}  // namespace
}  // namespace td
