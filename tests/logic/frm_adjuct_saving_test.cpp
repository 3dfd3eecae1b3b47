// The overlay settings dialog: what it saves, and the run that follows it.
#include <gtest/gtest.h>

#include <algorithm>

#include "settings_steps.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

TEST(SettingsSaving, WritesTheSelectionAndThenTheSettings) {
  const Trace trace =
      TwoFormats({ChooseFormat("两联单"), SetBox("txtLeft", "-56.7"), SetBox("txtTop", "113.4"),
                  SetBox("txtHeader", "200"), SetBox("txtRowHeight", "425.25"),
                  SetBox("txtRowsPerPage", "8"), SetBox("txtQtysPerRow", "3"), ChoosePrinter(2),
                  Json{{"option", "optOrientation"}, {"index", 0}},
                  Json{{"check", "chkHeaderPerPage"}, {"value", 0}},
                  Json{{"check", "chkFooterPerPage"}, {"value", 1}},
                  Json{{"check", "chkIntegralPage"}, {"value", 1}}, kOk})
          .Run();
  EXPECT_EQ(trace.Executed(),
            (Texts{"Update TDBill set FSelected=0 where FTranType=21",
                   "Update TDBill set FAdjuctLeft=-56.7,FAdjuctTop=113.4,FAdjuctHeader=200,"
                   "FRowHeight=425.25,FRowsPerPage=8,FQtysPerRow=3,FOrientation=0,FSelected=1,"
                   "FHeaderPerPage=0,FFooterPerPage=1,FIntegralPage=1,FPrintDevice='P1'  where "
                   "FTDBillName='两联单' and FTranType=21"}));
  EXPECT_EQ(trace.Lines("connect").size(), 1U);
  EXPECT_EQ(trace.Lines("unload").size(), 1U);
  EXPECT_EQ(trace.Lines("controls").size(), 13U) << "none after the dialog has closed";

  const std::vector<Json> formats = trace.Table("TDBill");
  EXPECT_EQ(formats[0].at("FSelected"), 0);
  EXPECT_EQ(formats[0].at("FAdjuctLeft"), 11);
  EXPECT_EQ(formats[1].at("FSelected"), 1);
  EXPECT_EQ(formats[1].at("FRowHeight"), 425.25);
  EXPECT_EQ(formats[1].at("FPrintDevice"), "P1");
}

TEST(SettingsSaving, LeavesTheFormatsOfOtherBillTypesAlone) {
  Scenario scenario = TwoFormats({kOk});
  scenario.AddFormat({{"FTDBillName", "销售单"}, {"FTranType", 22}, {"FSelected", 1}});
  const Json other = scenario.Run().Table("TDBill")[2];
  EXPECT_EQ(other.at("FSelected"), 1);
  EXPECT_EQ(other.at("FAdjuctLeft"), 0);
}

TEST(SettingsSaving, ANumberIsTheLeadingNumberOfTheText) {
  const Json saved =
      OneFormat({}, {SetBox("txtLeft", "abc"), SetBox("txtTop", "12.5毫米"),
                     SetBox("txtHeader", ""), SetBox("txtRowHeight", "  350 ,5"),
                     SetBox("txtRowsPerPage", "2.5"), SetBox("txtQtysPerRow", "1e3x"), kOk})
          .Run()
          .Table("TDBill")[0];
  EXPECT_EQ(saved.at("FAdjuctLeft"), 0);
  EXPECT_EQ(saved.at("FAdjuctTop"), 12.5);
  EXPECT_EQ(saved.at("FAdjuctHeader"), 0);
  EXPECT_EQ(saved.at("FRowHeight"), 350);
  EXPECT_EQ(saved.at("FRowsPerPage"), 2.5);
  EXPECT_EQ(saved.at("FQtysPerRow"), 1000);
}

TEST(SettingsSaving, TheDefaultAndTheSeparatorAreNoPrinter) {
  for (const int index : {0, 1}) {
    const Trace trace = OneFormat({{"FPrintDevice", "P2"}}, {ChoosePrinter(index), kOk}).Run();
    EXPECT_EQ(PrinterIndex(Controls(trace, 1)), index);
    EXPECT_EQ(trace.Table("TDBill")[0].at("FPrintDevice"), "") << index;
  }
}

TEST(SettingsSaving, OnlyACheckBoxAtOneIsSaved) {
  const Trace trace =
      OneFormat({{"FFooterPerPage", 1}}, {Json{{"check", "chkFooterPerPage"}, {"value", 2}}, kOk})
          .Run();
  EXPECT_EQ(trace.Table("TDBill")[0].at("FFooterPerPage"), 0);
}

TEST(SettingsSaving, WithoutFormatsTheSecondStatementMatchesNothing) {
  Scenario scenario;
  scenario.OpenTDSet({kOk}, {{"TranType", 99}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Executed(),
            (Texts{"Update TDBill set FSelected=0 where FTranType=99",
                   "Update TDBill set FAdjuctLeft=0,FAdjuctTop=0,FAdjuctHeader=0,FRowHeight=0,"
                   "FRowsPerPage=0,FQtysPerRow=0,FOrientation=1,FSelected=1,FHeaderPerPage=0,"
                   "FFooterPerPage=0,FIntegralPage=0,FPrintDevice=''  where FTDBillName='' and "
                   "FTranType=99"}));
  EXPECT_EQ(trace.Lines("unload").size(), 1U);
  EXPECT_EQ(trace.After().at("TDBillName"), "");
  EXPECT_EQ(trace.Table("TDBill")[0].at("FRowHeight"), 300);
}

TEST(SettingsSaving, WithoutADatabaseTheMessageShowsAndTheDialogStays) {
  Scenario scenario = TwoFormats({SetBox("txtLeft", "5"), kOk});
  scenario.Fault({{"on", "connect"}, {"number", 5}, {"description", "连不上"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Lines("box")[0], (Json{{"e", "box"}, {"text", "连不上"}, {"style", 64}}));
  EXPECT_TRUE(trace.Executed().empty());
  EXPECT_EQ(Controls(trace, 2).at("txtLeft"), "5");
}

TEST(SettingsSaving, AFailureOfTheSecondStatementLeavesNoSelectedFormat) {
  Scenario scenario;
  scenario.OpenTDSet({kOk}).Print();
  scenario.Fault({{"on", "execute"}, {"nth", 2}, {"number", 5}, {"description", "磁盘已满"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"磁盘已满", "未指定套打格式，打印被取消！"}));
  EXPECT_EQ(trace.Lines("controls").size(), 2U) << "the dialog is still open";
  EXPECT_EQ(trace.Table("TDBill")[0].at("FSelected"), 0);
  EXPECT_EQ(trace.After().at("PrintOk"), false);
}

TEST(SettingsSaving, CanBeRepeatedAfterAFailure) {
  Scenario scenario = TwoFormats({kOk, kOk});
  scenario.Fault({{"on", "execute"}, {"nth", 2}, {"number", 5}, {"description", "磁盘已满"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Executed().size(), 4U);
  EXPECT_EQ(trace.Lines("unload").size(), 1U);
  EXPECT_EQ(trace.Table("TDBill")[0].at("FSelected"), 1);
}

TEST(SettingsSaving, ALockedTableIsWrittenAgainUntilItIsFree) {
  Scenario scenario = TwoFormats({kOk});
  scenario.Fault({{"on", "connect"}, {"times", 2}, {"number", 5}, {"description", "锁"}})
      .Fault({{"on", "execute"}, {"times", 2}, {"number", 5}, {"description", "表已锁定"}})
      .Fault({{"on", "execute"},
              {"match", "FAdjuctLeft"},
              {"times", 3},
              {"number", 94},
              {"description", "行被锁住"}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_EQ(trace.Lines("connect").size(), 3U);
  EXPECT_EQ(trace.Executed().size(), 3U + 4U);
  EXPECT_EQ(trace.Table("TDBill")[0].at("FSelected"), 1);
}

TEST(SettingsSaving, NeitherNullNorAMissingColumnIsForgiven) {
  for (const int number : {94, 3265}) {
    Scenario scenario = TwoFormats({kOk});
    scenario.Fault({{"on", "execute"}, {"number", number}, {"description", "不成"}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Messages(), (Texts{"不成"})) << number;
    EXPECT_EQ(trace.Executed().size(), 1U);
    EXPECT_EQ(trace.Lines("controls").size(), 2U);
  }
}

TEST(SettingsSaving, AQuoteInTheNameBreaksOnlyTheSecondStatement) {
  Scenario scenario = TwoFormats({ChooseFormat("O'Brien"), kOk});
  scenario.AddFormat({{"FTDBillName", "O'Brien"}, {"FAdjuctTop", 99}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 2U) << "when it was chosen, and when it was saved";
  EXPECT_EQ(trace.Lines("controls").size(), 3U) << "the dialog is still open";
  for (const Json& format : trace.Table("TDBill")) EXPECT_EQ(format.at("FSelected"), 0);
  EXPECT_EQ(trace.Table("TDBill")[2].at("FAdjuctTop"), 99);
}

TEST(SettingsSaving, AQuoteInThePrintersNameBreaksOnlyTheSecondStatement) {
  Scenario scenario = TwoFormats({SetBox("txtTop", "99"), ChoosePrinter(2), kOk});
  scenario.Set("printers", {"P'1", "P2"});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_EQ(trace.Executed().size(), 2U);
  EXPECT_EQ(trace.Lines("controls").size(), 4U) << "the dialog is still open";
  EXPECT_EQ(trace.Table("TDBill")[0].at("FSelected"), 0);
  EXPECT_EQ(trace.Table("TDBill")[0].at("FAdjuctTop"), 12);
}

TEST(FineTuning, ConfirmedPrintsAgainWithTheSavedFormat) {
  Scenario scenario;
  scenario.Item({}).AddFormat({{"FTDBillName", "两联单"}});
  scenario.Preview({InDialog({SetBox("txtLeft", "40"), kOk})}, {{"TDBillName", "销售单"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("StartDoc").size(), 2U);
  EXPECT_TRUE(trace.Calls("ClearDoc").empty());
  ASSERT_EQ(trace.Boxes().size(), 2U);
  EXPECT_EQ(trace.Boxes()[0].left, 100);
  EXPECT_EQ(trace.Boxes()[1].left, 140);
  EXPECT_EQ(trace.After().at("TDBillName"), "销售单");
}

TEST(FineTuning, TheRunAfterItGoesByTheSelectedFormat) {
  Scenario scenario;
  scenario.Format({{"FSelected", 0}})
      .AddFormat({{"FTDBillName", "两联单"}, {"FSelected", 1}})
      .Preview({InDialog({kOk})}, {{"TDBillName", "销售单"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(Controls(trace).at("cmbTdBillName").at("list"), Json::array({"销售单"}));
  const Texts queries = trace.Queries();
  const auto asked = [&](const std::string& sql) {
    return std::count(queries.begin(), queries.end(), sql);
  };
  EXPECT_EQ(asked("select * from TDBill_PaperSize where FIP='192.168.1.10' and FTDBillName=''"), 1)
      << trace.Text();
  EXPECT_EQ(trace.Table("TDBill")[0].at("FSelected"), 1);
  EXPECT_EQ(trace.Table("TDBill")[1].at("FSelected"), 0);
  EXPECT_EQ(trace.After().at("TDBillName"), "销售单");
}

TEST(FineTuning, CancelledLeavesTheDocumentAsItWas) {
  const std::vector<Scenario::Steps> ways = {{SetBox("txtLeft", "40"), kCancel}, {}};
  for (const Scenario::Steps& way : ways) {
    Scenario scenario;
    scenario.Item({}).Preview({InDialog(way), "nextpage"});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Calls("StartDoc").size(), 1U);
    EXPECT_TRUE(trace.Executed().empty());
    EXPECT_EQ(trace.PageTexts().back(), "第1页   共1页");
  }
}

TEST(FineTuning, AFailedSaveMakesNoNewRun) {
  Scenario scenario;
  scenario.Item({}).Preview({InDialog({kOk})});
  scenario.Fault({{"on", "execute"}, {"number", 5}, {"description", "磁盘已满"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"磁盘已满"}));
  EXPECT_EQ(trace.Calls("StartDoc").size(), 1U);
}

TEST(FineTuning, WorksInTheStockAreaWindowToo) {
  Scenario scenario;
  scenario.Data({"FInterID", "FName", "FStockArea"}, {{1, "甲", "A1"}});
  scenario.Item({}).PreviewByArea({InDialog({SetBox("txtTop", "7"), kOk})});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("StartDoc").size(), 2U);
  EXPECT_EQ(trace.Table("TDBill")[0].at("FAdjuctTop"), 7);
}

TEST(FineTuning, PageSetupAfterACancelledDialogStoresUnderTheEmptyName) {
  const Json choice = {{"PaperSize", 11}, {"Device", "P2"}};
  Scenario scenario;
  scenario.Item({}).Preview(
      {InDialog({kCancel}), Json{{"key", "pageset"}, {"confirm", true}, {"put", choice}}},
      {{"TDBillName", "销售单"}});
  const Trace trace = scenario.Run();
  ASSERT_EQ(trace.Executed().size(), 3U);
  EXPECT_NE(trace.Executed()[0].find(" where FTDBillName='' and FTranType=21"), std::string::npos);
  EXPECT_EQ(trace.Executed()[1],
            "delete from TDBill_PaperSize where FIP='192.168.1.10' and FTDBillName=''");
  EXPECT_EQ(trace.Table("TDBill")[0].at("FPaperSize"), nullptr);
  ASSERT_EQ(trace.Table("TDBill_PaperSize").size(), 1U);
  EXPECT_EQ(trace.Table("TDBill_PaperSize")[0].at("FTDBillName"), "");
  EXPECT_EQ(trace.Puts("Device"), Json::array({"P2"})) << "the run that follows finds the row";
  EXPECT_EQ(trace.Puts("PaperSize"), Json::array({11}));
  EXPECT_EQ(trace.Calls("StartDoc").size(), 2U);
}

}  // namespace
}  // namespace td
