// The preview's toolbar and page setup.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

Scenario ThreePages(Scenario::Steps user) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 1}}).Bills({3}).Preview(std::move(user));
  return scenario;
}

TEST(Toolbar, PagesForwardAndBackWithinTheDocument) {
  const Trace trace =
      ThreePages({"previouspage", "nextpage", "nextpage", "nextpage", "previouspage"}).Run();
  EXPECT_EQ(trace.Puts("PreviewPage"), Json::array({2, 3, 2}));
  EXPECT_EQ(trace.PageTexts(),
            (Texts{"请稍候，正在读入打印数据...", "第1页   共3页", "第1页   共3页", "第2页   共3页",
                   "第3页   共3页", "第3页   共3页", "第2页   共3页"}));
}

TEST(Toolbar, OnOnePageThePreviewStays) {
  Scenario scenario;
  scenario.Preview({"nextpage", "previouspage"});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Puts("PreviewPage").empty());
  EXPECT_EQ(trace.PageTexts().back(), "第1页   共1页");
}

TEST(Toolbar, ZoomSwitchesBetweenFiftyAndAHundred) {
  const Trace trace = ThreePages({"zoom", "zoom", Json{{"put", {{"Zoom", 75}}}}, "zoom"}).Run();
  EXPECT_EQ(trace.Puts("Zoom"), Json::array({50, 100, 50}));
}

TEST(Toolbar, PrintTwiceMakesTwoPrintouts) {
  const Trace trace = ThreePages({"print", "print"}).Run();
  EXPECT_EQ(trace.Calls("PrintDoc").size(), 2U);
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

TEST(Toolbar, AFailingPrintoutIsShownAndNotCounted) {
  Scenario scenario = ThreePages({"print"});
  scenario.Fault({{"on", "PrintDoc"}, {"number", 57}, {"description", "没有打印机"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"没有打印机"}));
  EXPECT_EQ(trace.After().at("PrintOk"), false);
}

TEST(Toolbar, ExitUnloadsTheWindowOnce) {
  const Trace trace = ThreePages({"exit", "nextpage"}).Run();
  EXPECT_EQ(trace.Lines("unload").size(), 1U);
  EXPECT_EQ(trace.PageTexts().size(), 2U);
}

TEST(Toolbar, ExportAndUnknownKeysDoNothing) {
  EXPECT_EQ(ThreePages({"export", "nonsense"}).Run().Lines(), ThreePages({}).Run().Lines());
}

TEST(PageSetup, CancelledChangesNothing) {
  const Trace trace =
      ThreePages({Json{{"key", "pageset"}, {"confirm", false}, {"put", {{"PaperSize", 11}}}}})
          .Run();
  EXPECT_TRUE(trace.Executed().empty());
  EXPECT_EQ(trace.Calls("StartDoc").size(), 1U);
  EXPECT_TRUE(trace.Calls("ClearDoc").empty());
}

TEST(PageSetup, ConfirmedStoresForTheFormatAndForThisMachineAndPrintsAgain) {
  const Json choice = {{"PaperWidth", 13663.5},
                       {"PaperHeight", 7937},
                       {"Device", "P2"},
                       {"MarginLeft", 56.7},
                       {"Orientation", 1}};
  const Trace trace =
      ThreePages({Json{{"key", "pageset"}, {"confirm", true}, {"put", choice}}}).Run();
  EXPECT_EQ(
      trace.Executed(),
      (Texts{"Update TDBill set FMarginleft=56.7,FMarginTop=0,FMarginRight=0,FMarginBottom=0,"
             "FOrientation=1,FPaperSize=256,FPaperWidth=13663.5,FPaperHeight=7937 where "
             "FTDBillName='销售单' and FTranType=21",
             "delete from TDBill_PaperSize where FIP='192.168.1.10' and FTDBillName='销售单'",
             "insert into TDBill_PaperSize(FIP,FTDBillName,FPaperSize,FPaperWidth,FPaperHeight,"
             "FOrientation,FDevice) values('192.168.1.10','销售单',256,13663.5,7937,1,'P2')"}));
  EXPECT_EQ(trace.Lines("connect").size(), 1U);
  EXPECT_EQ(trace.Calls("ClearDoc").size(), 1U);
  EXPECT_EQ(trace.Calls("StartDoc").size(), 2U);
  EXPECT_EQ(trace.Puts("Device"), Json::array({"P2"})) << "the new row serves the second run";
}

TEST(PageSetup, ConfirmedTwiceLeavesOneRowWithTheNewValues) {
  const auto choose = [](const char* device) {
    return Json{{"key", "pageset"}, {"confirm", true}, {"put", {{"Device", device}}}};
  };
  const Trace trace = ThreePages({choose("P2"), choose("P1")}).Run();
  ASSERT_EQ(trace.Table("TDBill_PaperSize").size(), 1U);
  EXPECT_EQ(trace.Table("TDBill_PaperSize")[0].at("FDevice"), "P1");
}

TEST(PageSetup, TheFormatsPrinterOverridesTheChosenOne) {
  Scenario scenario =
      ThreePages({Json{{"key", "pageset"}, {"confirm", true}, {"put", {{"Device", "P2"}}}}});
  scenario.Format({{"FPrintDevice", "P1"}});
  EXPECT_EQ(scenario.Run().Puts("Device"), Json::array({"P1", "P2", "P1"}));
}

TEST(PageSetup, AQuoteInThePrintersNameBreaksOnlyTheMachinesRow) {
  Scenario scenario = ThreePages({Json{
      {"key", "pageset"}, {"confirm", true}, {"put", {{"Device", "P'2"}, {"PaperSize", 11}}}}});
  scenario.Set("printers", {"P1", "P'2"}).MachinePaper({{"FDevice", "P1"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  ASSERT_EQ(trace.Executed().size(), 3U);
  EXPECT_TRUE(trace.Executed().back().ends_with(",'P'2')")) << trace.Executed().back();
  EXPECT_EQ(trace.Table("TDBill")[0].at("FPaperSize"), 11) << "the update stays";
  EXPECT_TRUE(trace.Table("TDBill_PaperSize").empty()) << "the delete stays, too";
  EXPECT_TRUE(trace.Calls("ClearDoc").empty());
  EXPECT_EQ(trace.Calls("StartDoc").size(), 1U) << "no second run";
}

TEST(PageSetup, WithoutADatabaseTheBoxShowsAndThePreviewStays) {
  Scenario scenario = ThreePages({Json{{"key", "pageset"}, {"confirm", true}}, "nextpage"});
  scenario.Fault({{"on", "connect"}, {"number", 5}, {"description", "连不上"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"连不上"}));
  EXPECT_TRUE(trace.Table("TDBill_PaperSize").empty());
  EXPECT_EQ(trace.PageTexts().back(), "第2页   共3页");
}

}  // namespace
}  // namespace td
