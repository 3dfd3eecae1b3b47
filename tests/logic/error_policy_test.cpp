// What a routine does when one of its statements fails.
#include <gtest/gtest.h>

#include <algorithm>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

auto CountOf(const Texts& texts, const std::string& beginning) {
  return std::count_if(texts.begin(), texts.end(),
                       [&](const std::string& text) { return text.starts_with(beginning); });
}

TEST(ErrorPolicy, ALockedFormatTableIsReadAgainUntilItIsFree) {
  Scenario scenario;
  scenario.FieldItem("FName");
  scenario.Fault({{"on", "query"},
                  {"times", 5},
                  {"number", -2147467259},
                  {"description", "表已被其他用户锁定"},
                  {"match", "from TDBill where"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(CountOf(trace.Queries(), "select * from TDBill where"), 6);
  EXPECT_EQ(trace.Texts(), (Texts{"甲"}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(ErrorPolicy, TheMachinesAddressIsAskedForAgainOnEachTry) {
  Scenario scenario;
  scenario.Fault({{"on", "LocalMachineId"}, {"times", 2}, {"number", 5}, {"description", "锁"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(CountOf(trace.Queries(), "select * from TDBill_PaperSize"), 1);
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

TEST(ErrorPolicy, AnOpeningThatWasSkippedIsNotOpen) {
  for (const int number : {94, 3265}) {
    Scenario scenario;
    scenario.Fault({{"on", "query"}, {"number", number}, {"match", "from TDBill where"}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Messages().size(), 1U) << "the next use of it ends the run";
    EXPECT_TRUE(trace.Calls("StartDoc").empty());
  }
}

TEST(ErrorPolicy, AForgivenFailureSkipsOneStatementOnly) {
  for (const int number : {94, 3265}) {
    Scenario scenario;
    scenario.FieldItem("FName");
    scenario.Fault({{"on", "put:MousePointer"}, {"number", number}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Texts(), (Texts{"甲"}));
    EXPECT_EQ(trace.Puts("MousePointer"), Json::array({11, 1})) << "traced, not repeated";
  }
}

TEST(ErrorPolicy, AnyOtherFailureShowsItsDescriptionAndEndsTheRun) {
  Scenario scenario;
  scenario.Fault({{"on", "query"},
                  {"number", 99},
                  {"description", "服务器断开"},
                  {"match", "TDBill_PaperSize"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"服务器断开"}));
  EXPECT_EQ(trace.Lines("box")[0].at("style"), 64);
  EXPECT_TRUE(trace.Calls("StartDoc").empty());
}

TEST(ErrorPolicy, ABandWaitsForALockAndForgivesNullAndMissingColumns) {
  for (const auto& [number, description] :
       std::vector<std::pair<int, const char*>>{{5, "行锁"}, {94, "Null"}, {3265, "无此列"}}) {
    Scenario scenario;
    scenario.FieldItem("FName").Item({{"FTop", 1100}});
    scenario.Fault({{"on", "TextBox"}, {"number", number}, {"description", description}});
    const Trace trace = scenario.Run();
    EXPECT_TRUE(trace.Messages().empty());
    EXPECT_EQ(trace.Texts().back(), "文本");
    EXPECT_EQ(trace.Texts().size(), number == 5 ? 3U : 2U) << "the lock repeats the call";
  }
}

TEST(ErrorPolicy, ABandThatFailsIsNotDrawnToItsEndAndTheRunGoesOn) {
  Scenario scenario;
  scenario.FieldItem("FName").Item({{"FTop", 1100}}).Bills({2});
  scenario.Fault({{"on", "TextBox"}, {"number", 7}, {"description", "坏了"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"坏了"}));
  EXPECT_EQ(trace.Texts(), (Texts{"行1", "行2", "文本"}));
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

TEST(ErrorPolicy, TheToolbarShowsAFailureAndTheWindowStays) {
  Scenario scenario;
  scenario.Fault({{"on", "put:Zoom"}, {"number", 5}, {"description", "锁"}});
  scenario.Preview({"zoom", "zoom"});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"锁"})) << "no retry here";
  EXPECT_EQ(trace.Puts("Zoom").size(), 2U);
}

TEST(ErrorPolicy, PageSetupKeepsWhatItExecutedBeforeAFailure) {
  Scenario scenario;
  scenario.Fault({{"on", "execute"}, {"nth", 2}, {"number", 5}, {"description", "断开"}});
  scenario.Preview({Json{{"key", "pageset"}, {"confirm", true}, {"put", {{"PaperSize", 11}}}}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"断开"}));
  EXPECT_EQ(trace.Executed().size(), 2U);
  EXPECT_EQ(trace.Table("TDBill")[0].at("FPaperSize"), 11);
  EXPECT_TRUE(trace.Calls("ClearDoc").empty());
  EXPECT_EQ(trace.Calls("StartDoc").size(), 1U) << "no second run";
}

TEST(ErrorPolicy, AFailingPrintoutIsShownAndCountsAsPrinted) {
  Scenario scenario;
  scenario.Fault({{"on", "PrintDoc"}, {"number", 57}, {"description", "没有打印机"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"没有打印机"}));
  EXPECT_EQ(trace.After().at("PrintOk"), true) << "set before the document is sent";
  EXPECT_EQ(trace.After().at("row"), 0);
}

}  // namespace
}  // namespace td
