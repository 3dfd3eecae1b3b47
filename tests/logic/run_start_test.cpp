// From the window's load to the open document: format, paper, printer and layout.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

TEST(RunStart, LoadSetsTheMarginsToZeroInTheirOrder) {
  const Trace trace = Scenario().Run();
  Texts puts;
  for (const Json& put : trace.Lines("put")) {
    if (puts.size() < 6) puts.push_back(put.at("p").get<std::string>() + "=" + put.at("v").dump());
  }
  EXPECT_EQ(puts, (Texts{"MarginLeft=0", "MarginBottom=0", "MarginRight=0", "MarginTop=0",
                         "MousePointer=11", "TableSeparators=\"|_\""}));
}

TEST(RunStart, LoadIgnoresAMissingSettingsTable) {
  Scenario scenario;
  scenario.FieldItem("FName").DropTable("t_SystemProfile");
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_EQ(trace.Texts(), (Texts{"甲"}));
}

TEST(RunStart, AFailingSettingsQueryLeavesComplexQuantitiesOff) {
  Scenario scenario;
  scenario.FieldItem("FComplexQty", {{"FObjectCaption", "FComplexQty"}});
  scenario.Data({"FInterID", "FMainQty", "FQty", "FUnit"}, {{1, 0, 5, "瓶"}});
  scenario.Fault({{"on", "query"}, {"number", 94}, {"match", "MustShowComplexQty"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{""}));
}

TEST(RunStart, ALockDuringTheLoadIsPassedOverAndNotWaitedFor) {
  for (const bool byArea : {false, true}) {
    Scenario scenario;
    scenario.FieldItem("FName", {{"FObjectCaption", ""}});
    scenario.Fault({{"on", "query"},
                    {"match", "MustShowComplexQty"},
                    {"times", 50},
                    {"number", 5},
                    {"description", "锁"}});
    byArea ? scenario.PrintByArea() : scenario.Print();
    const Trace trace = scenario.Run();
    const Texts queries = trace.Queries();
    EXPECT_EQ(std::count(queries.begin(), queries.end(),
                         "select FValue from t_SystemProfile where FKey='MustShowComplexQty'"),
              1);
    EXPECT_TRUE(trace.Messages().empty());
    EXPECT_EQ(trace.Texts(), (Texts{"甲"})) << "the run goes on";
  }
}

TEST(RunStart, ASecondActivationStartsNoSecondRun) {
  Scenario scenario;
  scenario.Preview({Json{{"activate", true}}, Json{{"activate", true}}});
  EXPECT_EQ(scenario.Run().Calls("StartDoc").size(), 1U);
}

TEST(RunStart, OnlyAShownWindowReadsTheAdvertisingSetting) {
  const std::string query = "Select Fvalue from t_systemprofile where fkey='PrintAdvertising'";
  Scenario silent;
  const Texts silentQueries = silent.Run().Queries();
  EXPECT_EQ(std::count(silentQueries.begin(), silentQueries.end(), query), 0);
  Scenario shown;
  shown.Preview();
  const Texts shownQueries = shown.Run().Queries();
  EXPECT_EQ(std::count(shownQueries.begin(), shownQueries.end(), query), 1);
}

TEST(RunStart, DisablesThreeButtonsAndEnablesThemAtTheEnd) {
  const Trace trace = Scenario().Run();
  Texts buttons;
  for (const Json& line : trace.Lines("enable")) {
    buttons.push_back(line.at("k").get<std::string>() + (line.at("v") == true ? "+" : "-"));
  }
  EXPECT_EQ(buttons, (Texts{"print-", "zoom-", "exit-", "print+", "zoom+", "exit+"}));
  EXPECT_EQ(trace.PageTexts(), (Texts{"请稍候，正在读入打印数据...", "第1页   共1页"}));
}

TEST(RunStart, WithoutANameTheSelectedFormatPrintsAndItsNameIsKept) {
  Scenario scenario;
  scenario.AddFormat({{"FTDBillName", "别的"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.After().at("TDBillName"), "销售单");
  EXPECT_EQ(trace.Queries()[1], "select * from TDBill where FSelected=1 and FTranType=21");
  EXPECT_EQ(trace.Queries()[2],
            "select * from TDBill_PaperSize where FIP='192.168.1.10' and FTDBillName=''");
}

TEST(RunStart, ANamedFormatPrintsWhateverIsSelected) {
  Scenario scenario;
  scenario.AddFormat({{"FTDBillName", "别的"}, {"FOrientation", 1}});
  scenario.Print({{"TDBillName", "别的"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Queries()[1], "select * from TDBill where FTDBillName='别的'  and FTranType=21");
  EXPECT_EQ(trace.Puts("Orientation"), Json::array({1}));
}

TEST(RunStart, WithoutAFormatOneBoxShowsAndTheWindowGoes) {
  for (const std::string name : {"", "没有登记"}) {
    Scenario scenario;
    // With an unknown name the selected format stays selected and must not step in.
    if (name.empty()) scenario.Format({{"FSelected", 0}});
    scenario.Preview({"nextpage"}, {{"TDBillName", name}});
    const Trace trace = scenario.Run();
    ASSERT_EQ(trace.Messages(), (Texts{"未指定套打格式，打印被取消！"}));
    EXPECT_EQ(trace.Lines("box")[0].at("style"), 64);
    EXPECT_EQ(trace.Lines("unload").size(), 1U);
    EXPECT_TRUE(trace.Calls("StartDoc").empty());
    EXPECT_EQ(trace.PageTexts().size(), 1U) << "the user's steps find no window";
    EXPECT_EQ(trace.After().at("PrintOk"), false);
  }
}

TEST(RunStart, OfSeveralSelectedFormatsTheFirstPrints) {
  Scenario scenario;
  scenario.AddFormat({{"FTDBillName", "第二"}, {"FSelected", 1}});
  EXPECT_EQ(scenario.Run().After().at("TDBillName"), "销售单");
}

TEST(RunStart, AQuoteInAFormatNameBreaksTheStatement) {
  Scenario scenario;
  scenario.Print({{"TDBillName", "a'b"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_TRUE(trace.Calls("StartDoc").empty());
}

TEST(RunStart, AUserDefinedSheetSetsHeightThenWidth) {
  Scenario scenario;
  scenario.Format({{"FPaperSize", 256}, {"FPaperWidth", 12000}, {"FPaperHeight", 5000}});
  const Trace trace = scenario.Run();
  Texts papers;
  for (const Json& put : trace.Lines("put")) {
    const std::string property = put.at("p");
    if (property.starts_with("Paper")) papers.push_back(property + "=" + put.at("v").dump());
  }
  EXPECT_EQ(papers, (Texts{"PaperHeight=5000", "PaperWidth=12000"}));
}

TEST(RunStart, AKnownPaperIsSetByItsCodeAndZeroKeepsThePaper) {
  const auto sizes = [](Json code) {
    Scenario scenario;
    scenario.Format({{"FPaperSize", code}, {"FPaperWidth", 11906}, {"FPaperHeight", 16838}});
    return scenario.Run().Puts("PaperSize");
  };
  EXPECT_EQ(sizes(11), Json::array({11}));
  EXPECT_EQ(sizes(0), Json::array());
  EXPECT_EQ(sizes(nullptr), Json::array({0}));
}

TEST(RunStart, WithoutAWidthNoPaperIsSetAtAll) {
  Scenario scenario;
  scenario.Format({{"FPaperSize", 9}, {"FPaperWidth", nullptr}, {"FPaperHeight", 5000}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("PaperSize"), Json::array());
  EXPECT_EQ(trace.Puts("PaperHeight"), Json::array());
}

TEST(RunStart, AnyNonZeroOrientationIsLandscapeAndNullSetsNone) {
  const auto orientation = [](Json value) {
    Scenario scenario;
    scenario.Format({{"FOrientation", value}});
    return scenario.Run().Puts("Orientation");
  };
  EXPECT_EQ(orientation(0), Json::array({0}));
  EXPECT_EQ(orientation(2), Json::array({1}));
  EXPECT_EQ(orientation(nullptr), Json::array());
}

TEST(RunStart, TheMachinesRowReplacesTheFormatsPaper) {
  Scenario scenario;
  scenario.Format({{"FPaperSize", 256}, {"FPaperWidth", 12000}, {"FPaperHeight", 5000}});
  scenario.MachinePaper({{"FPaperSize", 256}, {"FOrientation", 1}});
  scenario.Print({{"TDBillName", "销售单"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("Device"), Json::array({"P2"}));
  EXPECT_EQ(trace.Puts("Orientation"), Json::array({1}));
  EXPECT_EQ(trace.Puts("PaperSize"), Json::array({256}));
  EXPECT_EQ(trace.Puts("PaperWidth"), Json::array()) << "the row's size is not applied";
}

TEST(RunStart, TheMachinesRowIsNotFoundOnAFirstRunWithoutAName) {
  Scenario scenario;
  scenario.MachinePaper({});
  EXPECT_EQ(scenario.Run().Puts("Device"), Json::array());
}

TEST(RunStart, APrinterThatIsGoneIsReportedAndTheDefaultPrinterServes) {
  Scenario scenario;
  scenario.FieldItem("FName").MachinePaper({{"FDevice", "旧打印机"}, {"FOrientation", 1}});
  scenario.Print({{"TDBillName", "销售单"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"找不到打印“旧打印机”，将采用默认打印机！"}));
  EXPECT_EQ(trace.Puts("Orientation"), Json::array({1}));
  EXPECT_EQ(trace.Puts("PaperSize"), Json::array({9}));
  EXPECT_EQ(trace.Texts(), (Texts{"甲"}));
  EXPECT_EQ(trace.After().at("PrintOk"), true);
}

TEST(RunStart, ARefusedPropertyWithoutAMachinesRowLeavesTheRun) {
  Scenario scenario;
  scenario.Format({{"FPaperSize", 9}, {"FPaperWidth", 1}});
  scenario.Fault({{"on", "put:PaperSize"}, {"number", 380}, {"description", "无效"}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty()) << "the report itself failed";
  EXPECT_TRUE(trace.Calls("StartDoc").empty());
  EXPECT_EQ(trace.After().at("PrintOk"), false);
}

TEST(RunStart, ANullPrinterNameIsReportedAsEmpty) {
  Scenario scenario;
  scenario.MachinePaper({{"FDevice", nullptr}}).Print({{"TDBillName", "销售单"}});
  scenario.Fault({{"on", "put:PaperSize"}, {"number", 380}, {"description", "无效"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("Device"), Json::array()) << "Null skips the choice of the printer";
  EXPECT_EQ(trace.Messages(), (Texts{"找不到打印“”，将采用默认打印机！"}));
}

TEST(RunStart, TheFormatsOwnPrinterWinsIfItIsInstalled) {
  Scenario scenario;
  scenario.Format({{"FPrintDevice", "P1"}}).MachinePaper({{"FDevice", "P2"}});
  scenario.Print({{"TDBillName", "销售单"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("Device"), Json::array({"P2", "P1"}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(RunStart, AFormatsPrinterThatIsNotInstalledIsPassedOverSilently) {
  for (const char* printer : {"p1", "", "旧打印机"}) {
    Scenario scenario;
    scenario.Format({{"FPrintDevice", printer}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Puts("Device"), Json::array()) << printer;
    EXPECT_TRUE(trace.Messages().empty());
  }
}

TEST(RunStart, AFormatTableWithoutThePrinterColumnTakesTheFirstPrinter) {
  Scenario scenario;
  scenario.DropColumn("TDBill", "FPrintDevice");
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("Device"), Json::array({"P1"})) << "each failed test holds";
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(RunStart, ANullRowHeightKeeps350AndNullRowsPerPageKeepZero) {
  Scenario scenario;
  scenario.FieldItem("FName");
  scenario.Format({{"FRowHeight", nullptr}, {"FRowsPerPage", nullptr}}).Bills({12});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage().size(), 1U);
  EXPECT_EQ(trace.BoxOf("行2").top, 1350);
}

TEST(RunStart, AFormatTableWithoutAColumnPrintsAllTheSame) {
  Scenario scenario;
  scenario.FieldItem("FName").DropColumn("TDBill", "FIntegralPage");
  scenario.Line({{"FTop", 1200}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_EQ(trace.Calls("DrawLine").size(), 1U) << "no empty rows";
}

TEST(RunStart, LayoutValuesAreConvertedAndRoundHalvesToEven) {
  Scenario scenario;
  scenario.FieldItem("FName").Format({{"FRowsPerPage", 2.5}, {"FRowHeight", "300"}}).Bills({3});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"行1", "行2"}, {"行3"}}));
}

TEST(RunStart, ALayoutValueThatIsNoNumberEndsTheRun) {
  Scenario scenario;
  scenario.Format({{"FRowHeight", "高"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_TRUE(trace.Calls("StartDoc").empty());
}

}  // namespace
}  // namespace td
