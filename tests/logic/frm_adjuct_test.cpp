// The overlay settings dialog: what it shows, and how it closes.
#include <gtest/gtest.h>

#include "settings_steps.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

TEST(SettingsOpening, ShowsTheSelectedFormatWithAllItsSettings) {
  Scenario scenario;
  scenario.Format({{"FSelected", 0}})
      .AddFormat({{"FTDBillName", "两联单"},
                  {"FSelected", 1},
                  {"FAdjuctLeft", -30},
                  {"FAdjuctTop", 1.5},
                  {"FAdjuctHeader", 200},
                  {"FRowHeight", 350.25},
                  {"FRowsPerPage", 8},
                  {"FQtysPerRow", 3},
                  {"FHeaderPerPage", 1},
                  {"FFooterPerPage", 1},
                  {"FIntegralPage", 1},
                  {"FOrientation", 1},
                  {"FPrintDevice", "P2"}})
      .OpenTDSet();
  const Json expected = {
      {"cmbTdBillName", {{"list", {"两联单", "销售单"}}, {"index", 0}}},
      {"txtLeft", "-30"},
      {"txtTop", "1.5"},
      {"txtHeader", "200"},
      {"txtRowHeight", "350.25"},
      {"txtRowsPerPage", "8"},
      {"txtQtysPerRow", "3"},
      {"cmbPrintDevice",
       {{"list", {"windows默认打印机", "--------------------", "P1", "P2"}}, {"index", 3}}},
      {"optOrientation", 1},
      {"chkHeaderPerPage", 1},
      {"chkFooterPerPage", 1},
      {"chkIntegralPage", 1}};
  EXPECT_EQ(Controls(scenario.Run()), expected);
}

TEST(SettingsOpening, ReadsTheFormatsOfTheBillTypeAndThenTheSelectedOne) {
  const Trace trace = TwoFormats({}).Run();
  EXPECT_EQ(trace.Queries(),
            (Texts{"select * from TDBill where FTranType=21 order by FSelected desc",
                   "select * from TDBill where FTranType=21 and FTDBillName='销售单'"}));
  EXPECT_TRUE(trace.Lines("connect").empty());
}

TEST(SettingsOpening, AfterARunListsOnlyItsFormat) {
  Scenario scenario;
  scenario.AddFormat({{"FTDBillName", "两联单"}});
  scenario.Print({{"TDBillName", "两联单"}}).OpenTDSet();
  const Trace trace = scenario.Run();
  const Texts queries = trace.Queries();
  ASSERT_GE(queries.size(), 2U);
  EXPECT_EQ(queries[queries.size() - 2],
            "select * from TDBill where FTranType=21 and FTDBillName='两联单' order by "
            "FSelected desc");
  EXPECT_EQ(Controls(trace).at("cmbTdBillName"), (Json{{"list", {"两联单"}}, {"index", 0}}));
}

TEST(SettingsOpening, ABillTypeWithoutFormatsShowsAnEmptyListAndBlankBoxes) {
  Scenario scenario;
  scenario.OpenTDSet({}, {{"TranType", 99}});
  const Trace trace = scenario.Run();
  const Json controls = Controls(trace);
  EXPECT_EQ(controls.at("cmbTdBillName"), (Json{{"list", Json::array()}, {"index", -1}}));
  EXPECT_EQ(controls.at("txtLeft"), "");
  EXPECT_EQ(controls.at("txtRowsPerPage"), "");
  EXPECT_EQ(controls.at("optOrientation"), -1);
  EXPECT_EQ(PrinterIndex(controls), -1);
  EXPECT_EQ(trace.Queries().size(), 1U);
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(SettingsOpening, WithoutASelectedFormatTheFirstIsShown) {
  Scenario scenario = TwoFormats({});
  scenario.Format({{"FSelected", 0}});
  EXPECT_EQ(Controls(scenario.Run()).at("cmbTdBillName").at("index"), 0);
}

TEST(SettingsOpening, OfTwoSelectedFormatsTheOneReadLastIsShown) {
  Scenario scenario;
  scenario.AddFormat({{"FTDBillName", "两联单"}, {"FSelected", 1}, {"FAdjuctTop", 77}})
      .AddFormat({{"FTDBillName", "三联单"}})
      .OpenTDSet();
  const Json controls = Controls(scenario.Run());
  EXPECT_EQ(controls.at("cmbTdBillName").at("index"), 1);
  EXPECT_EQ(controls.at("txtTop"), "77");
}

TEST(SettingsOpening, ASelectedFormatWithoutANameIsPassedOver) {
  Scenario scenario = OneFormat({{"FTDBillName", nullptr}});
  EXPECT_EQ(Controls(scenario.Run()).at("cmbTdBillName"),
            (Json{{"list", Json::array()}, {"index", -1}}));
  EXPECT_TRUE(scenario.Run().Messages().empty());

  scenario.AddFormat({{"FTDBillName", "两联单"}, {"FAdjuctTop", 77}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_EQ(Controls(trace).at("cmbTdBillName"), (Json{{"list", {"两联单"}}, {"index", 0}}));
  EXPECT_EQ(Controls(trace).at("txtTop"), "77");
}

TEST(SettingsOpening, ANullLeftOffsetShowsZeroAndOtherNullsStayBlank) {
  const Json controls = Controls(OneFormat({{"FAdjuctLeft", nullptr},
                                            {"FAdjuctTop", nullptr},
                                            {"FRowHeight", nullptr},
                                            {"FQtysPerRow", nullptr},
                                            {"FHeaderPerPage", nullptr},
                                            {"FFooterPerPage", nullptr},
                                            {"FIntegralPage", nullptr},
                                            {"FOrientation", nullptr}})
                                     .Run());
  EXPECT_EQ(controls.at("txtLeft"), "0");
  EXPECT_EQ(controls.at("txtTop"), "");
  EXPECT_EQ(controls.at("txtRowHeight"), "");
  EXPECT_EQ(controls.at("txtQtysPerRow"), "");
  EXPECT_EQ(controls.at("txtRowsPerPage"), "10");
  EXPECT_EQ(controls.at("chkHeaderPerPage"), 0);
  EXPECT_EQ(controls.at("chkFooterPerPage"), 0);
  EXPECT_EQ(controls.at("chkIntegralPage"), 0);
  EXPECT_EQ(controls.at("optOrientation"), -1);
}

TEST(SettingsOpening, LeavesTheOrientationToTheSelectionOfTheFormat) {
  Scenario scenario = TwoFormats({});
  scenario.Fault({{"on", "query"}, {"nth", 2}, {"number", 5}, {"description", "读不到"}});
  const Trace trace = scenario.Run();
  const Json controls = Controls(trace);
  EXPECT_EQ(trace.Messages(), (Texts{"读不到"}));
  EXPECT_EQ(controls.at("optOrientation"), -1);
  EXPECT_EQ(controls.at("txtLeft"), "11");
  EXPECT_EQ(controls.at("chkIntegralPage"), 1);
  EXPECT_EQ(PrinterIndex(controls), 2);
}

TEST(SettingsOpening, OfPrintersOfOneNameTheLastIsSelected) {
  Scenario scenario = OneFormat({{"FPrintDevice", "P1"}});
  scenario.Set("printers", {"P1", "P2", "P1"});
  EXPECT_EQ(PrinterIndex(Controls(scenario.Run())), 4);
}

TEST(SettingsOpening, APrinterThatIsNotInTheListShowsTheDefault) {
  EXPECT_EQ(PrinterIndex(Controls(OneFormat({{"FPrintDevice", "p1"}}).Run())), 0);
  EXPECT_EQ(PrinterIndex(Controls(OneFormat({{"FPrintDevice", ""}}).Run())), 0);
  EXPECT_EQ(PrinterIndex(Controls(OneFormat({{"FPrintDevice", nullptr}}).Run())), 0);
}

TEST(SettingsOpening, AMissingColumnIsShownAndEndsTheLoad) {
  Scenario scenario = TwoFormats({});
  scenario.DropColumn("TDBill", "FFooterPerPage");
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_TRUE(Controls(trace).at("cmbTdBillName").at("list").empty());
  EXPECT_EQ(Controls(trace).at("txtQtysPerRow"), "14");
}

TEST(SettingsOpening, AnUnreadableDatabaseIsShownAndTheDialogOpensBlank) {
  Scenario scenario = TwoFormats({});
  scenario.Fault({{"on", "query"}, {"number", 5}, {"description", "连不上"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"连不上"}));
  EXPECT_EQ(Controls(trace).at("txtLeft"), "");
  EXPECT_EQ(Controls(trace).at("cmbPrintDevice").at("list").size(), 4U);
}

TEST(SettingsOpening, ALockedTableIsReadAgainUntilItIsFree) {
  Scenario scenario = TwoFormats({});
  scenario.Fault({{"on", "query"}, {"times", 3}, {"number", 5}, {"description", "表已锁定"}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_EQ(trace.Queries().size(), 5U);
  EXPECT_EQ(Controls(trace).at("txtLeft"), "11");
}

TEST(FormatChange, ShowsTheChosenFormat) {
  const Trace trace = TwoFormats({ChooseFormat("两联单")}).Run();
  const Json controls = Controls(trace, 1);
  EXPECT_EQ(trace.Queries().back(),
            "select * from TDBill where FTranType=21 and FTDBillName='两联单'");
  EXPECT_EQ(controls.at("cmbTdBillName").at("index"), 1);
  EXPECT_EQ(controls.at("txtTop"), "22.5");
  EXPECT_EQ(controls.at("chkHeaderPerPage"), 1);
  EXPECT_EQ(controls.at("optOrientation"), 1);
  EXPECT_EQ(PrinterIndex(controls), 3);
}

TEST(FormatChange, ANullLeavesTheBoxAndClearsTheCheckBox) {
  const Trace trace = TwoFormats({ChooseFormat("两联单")}).Run();
  EXPECT_EQ(Controls(trace, 0).at("chkIntegralPage"), 1);
  EXPECT_EQ(Controls(trace, 1).at("txtLeft"), "11");
  EXPECT_EQ(Controls(trace, 1).at("chkIntegralPage"), 0);
}

TEST(FormatChange, ANullOrientationLeavesTheOptionAsItWas) {
  Scenario scenario = TwoFormats({ChooseFormat("两联单"), ChooseFormat("销售单")});
  scenario.Format({{"FOrientation", nullptr}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(Controls(trace, 0).at("optOrientation"), -1);
  EXPECT_EQ(Controls(trace, 2).at("optOrientation"), 1);
}

TEST(FormatChange, ThePrinterOfTheFormerFormatGivesWayToTheDefault) {
  Scenario scenario = TwoFormats({ChooseFormat("无打印机")});
  scenario.AddFormat({{"FTDBillName", "无打印机"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(PrinterIndex(Controls(trace, 0)), 2);
  EXPECT_EQ(PrinterIndex(Controls(trace, 1)), 0);
}

TEST(FormatChange, AnOrientationWithoutAnOptionEndsTheRoutineBeforeThePrinter) {
  Scenario scenario = TwoFormats({ChooseFormat("斜")});
  scenario.AddFormat({{"FTDBillName", "斜"}, {"FOrientation", 2}, {"FPrintDevice", "P2"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_EQ(Controls(trace, 1).at("optOrientation"), 0);
  EXPECT_EQ(PrinterIndex(Controls(trace, 1)), 0);
}

TEST(FormatChange, AFormatThatCannotBeReadIsReportedAndChangesNothing) {
  Scenario scenario = TwoFormats({ChooseFormat("两联单")});
  scenario.Fault(
      {{"on", "query"}, {"match", "两联单"}, {"number", 5}, {"description", "连接已断开"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"连接已断开"}));
  EXPECT_EQ(Controls(trace, 1).at("txtTop"), "12");
  EXPECT_EQ(Controls(trace, 1).at("optOrientation"), 0);
}

TEST(FormatChange, ALockedTableIsReadAgainUntilItIsFree) {
  Scenario scenario = TwoFormats({ChooseFormat("两联单")});
  scenario.Fault({{"on", "query"},
                  {"match", "两联单"},
                  {"times", 3},
                  {"number", 5},
                  {"description", "表已锁定"}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_EQ(trace.Queries().size(), 2U + 4U);
  EXPECT_EQ(Controls(trace, 1).at("txtTop"), "22.5");
}

// Only a change of the format reads the orientation, so that the load itself comes to its end.
TEST(FormatChange, AMissingColumnIsShownAndEndsTheRoutineBeforeThePrinter) {
  Scenario scenario = TwoFormats({ChooseFormat("两联单")});
  scenario.DropColumn("TDBill", "FOrientation");
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 2U) << "at the load's selection and at the user's";
  EXPECT_EQ(Controls(trace, 0).at("cmbTdBillName").at("list").size(), 2U);
  EXPECT_EQ(Controls(trace, 1).at("txtTop"), "22.5");
  EXPECT_EQ(Controls(trace, 1).at("optOrientation"), -1);
  EXPECT_EQ(PrinterIndex(Controls(trace, 1)), 0);
}

TEST(FormatChange, AQuoteInTheNameBreaksTheStatementAndHarmsNothingElse) {
  Scenario scenario = TwoFormats({ChooseFormat("O'Brien"), ChooseFormat("两联单")});
  scenario.AddFormat({{"FTDBillName", "O'Brien"}, {"FAdjuctTop", 99}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_EQ(Controls(trace, 1).at("cmbTdBillName").at("index"), 2);
  EXPECT_EQ(Controls(trace, 1).at("txtTop"), "12");
  EXPECT_EQ(Controls(trace, 2).at("txtTop"), "22.5");
}

TEST(SettingsClosing, CancelWritesNothing) {
  const Trace trace = TwoFormats({SetBox("txtLeft", "5"), kCancel}).Run();
  EXPECT_TRUE(trace.Executed().empty());
  EXPECT_EQ(trace.Table("TDBill")[0].at("FAdjuctLeft"), 11);
  EXPECT_EQ(trace.Lines("unload").size(), 1U);
}

TEST(SettingsClosing, ForgetsTheNameOfTheFormatWhicheverWay) {
  const std::vector<Scenario::Steps> ways = {{kOk}, {kCancel}, {}};
  for (const Scenario::Steps& way : ways) {
    Scenario scenario;
    scenario.Print({{"TDBillName", "销售单"}}).OpenTDSet(way);
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.After(0).at("TDBillName"), "销售单");
    EXPECT_EQ(trace.After(1).at("TDBillName"), "");
    EXPECT_EQ(trace.Lines("unload").size(), 1U) << trace.Text();
  }
}

TEST(SettingsClosing, LeavesThePrintDataAndItsResultAlone) {
  Scenario scenario;
  scenario.Print().OpenTDSet({kOk});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.After(0).at("PrintOk"), true);
  EXPECT_EQ(trace.After(1).at("PrintOk"), true);
  EXPECT_EQ(trace.After(1).at("row"), trace.After(0).at("row"));
  EXPECT_EQ(trace.After(1).at("clone"), trace.After(0).at("clone"));
}

}  // namespace
}  // namespace td
