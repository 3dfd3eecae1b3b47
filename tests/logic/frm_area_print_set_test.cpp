// The stock-area printer dialog.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

const Json kSave = {{"press", "cmdOk"}};
const Json kClose = {{"press", "cmdExit"}};

Json Choose(const char* list, int index) {
  return {{"select", list}, {"index", index}};
}

Json Controls(const Trace& trace, std::size_t step = 0) {
  const std::vector<Json> lines = trace.Lines("controls");
  EXPECT_LT(step, lines.size()) << trace.Text();
  return step < lines.size() ? lines[step].at("v") : Json::object();
}

Json PrinterIndex(const Trace& trace, std::size_t step) {
  return Controls(trace, step).at("cmbPrintDevice").at("index");
}

// Bill type 21 has the format "销售单" and 12 has "入库单"; the areas are A and B.
Scenario TwoAreas(Scenario::Steps user) {
  Scenario scenario;
  scenario.AddFormat({{"FTDBillName", "入库单"}, {"FTranType", 12}})
      .StockArea("A1")
      .StockArea("A2")
      .StockArea("B")
      .OpenAreaPrintSet(std::move(user));
  return scenario;
}

// Chooses 销售订货单, 销售单 and area A, and goes on.
Scenario::Steps InAreaA(const Scenario::Steps& more) {
  Scenario::Steps steps = {Choose("cmbBillType", 1), Choose("cmbPrintFmt", 0),
                           Choose("cmbStockArea", 0)};
  steps.insert(steps.end(), more.begin(), more.end());
  return steps;
}
constexpr std::size_t kAtAreaA = 3;  // the controls after those choices

TEST(AreaPrinterOpening, ShowsTheBillTypesAndSelectsOnlyTheFirst) {
  const Trace trace = TwoAreas({}).Run();
  const Json expected = {
      {"cmbBillType", {{"list", {"采购入库单", "销售订货单", "销售出库单"}}, {"index", 0}}},
      {"cmbPrintFmt", {{"list", {"入库单"}}, {"index", -1}}},
      {"cmbStockArea", {{"list", {"A", "B"}}, {"index", -1}}},
      {"cmbPrintDevice",
       {{"list", {"windows默认打印机", "--------------------", "P1", "P2"}}, {"index", -1}}}};
  EXPECT_EQ(Controls(trace), expected);
  EXPECT_EQ(trace.Queries(),
            (Texts{"select FTDBillName from TDBill where ftrantype=12",
                   "select left(isnull(FStockArea,''),1) as FStockArea from t_icitem group by "
                   "FStockArea order by FStockArea"}));
}

TEST(AreaPrinterOpening, ListsEachFirstCharacterOnceAndNoEmptyArea) {
  Scenario scenario;
  scenario.StockArea(nullptr).StockArea("").StockArea("东二").StockArea("东一").OpenAreaPrintSet();
  EXPECT_EQ(Controls(scenario.Run()).at("cmbStockArea").at("list"), Json::array({"东"}));
}

TEST(AreaPrinterOpening, AFailureOfTheFormatsLeavesTheRestOfTheLoad) {
  Scenario scenario = TwoAreas({});
  scenario.Fault({{"on", "query"}, {"number", 94}, {"description", "读不到"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"读不到"})) << "not even Null is forgiven there";
  EXPECT_TRUE(Controls(trace).at("cmbPrintFmt").at("list").empty());
  EXPECT_EQ(Controls(trace).at("cmbStockArea").at("list").size(), 2U);
}

TEST(AreaPrinterOpening, ALockIsShownAndNotRetried) {
  Scenario scenario = TwoAreas({});
  scenario.Fault(
      {{"on", "query"}, {"match", "t_icitem"}, {"number", 5}, {"description", "表已锁定"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"表已锁定"}));
  EXPECT_EQ(trace.Queries().size(), 2U);
  EXPECT_TRUE(Controls(trace).at("cmbStockArea").at("list").empty());
}

TEST(AreaPrinterOpening, ForgivesANullAndNothingElse) {
  for (const int number : {94, 3265}) {
    Scenario scenario = TwoAreas({});
    scenario.Fault({{"on", "query"},
                    {"match", "t_icitem"},
                    {"number", number},
                    {"description", "读不到库区"}});
    const Trace trace = scenario.Run();
    // The statement behind the one that was passed over finds no rows opened.
    EXPECT_EQ(trace.Messages(), (Texts{number == 94 ? "对象已关闭，不允许此操作" : "读不到库区"}));
    EXPECT_EQ(Controls(trace).at("cmbPrintFmt").at("list").size(), 1U);
    EXPECT_TRUE(Controls(trace).at("cmbStockArea").at("list").empty());
  }
}

TEST(AreaPrinterOpening, AMissingTableIsShownAndTheDialogOpens) {
  Scenario scenario = TwoAreas({});
  scenario.DropTable("t_icitem");
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_EQ(Controls(trace).at("cmbPrintDevice").at("list").size(), 4U);
}

TEST(AreaPrinterBillType, ChangedListsItsFormatsAndKeepsThePrinter) {
  const Trace trace = TwoAreas({Choose("cmbPrintFmt", 0), Choose("cmbPrintDevice", 3),
                                Choose("cmbBillType", 1), Choose("cmbBillType", 2)})
                          .Run();
  EXPECT_EQ(Controls(trace, 3).at("cmbPrintFmt"), (Json{{"list", {"销售单"}}, {"index", -1}}));
  EXPECT_EQ(PrinterIndex(trace, 3), 3);
  EXPECT_TRUE(Controls(trace, 4).at("cmbPrintFmt").at("list").empty());
  EXPECT_EQ(trace.Queries().back(), "select FTDBillName from TDBill where ftrantype=22");
}

TEST(StoredAreaPrinter, IsShownWhenTheFormatOrTheAreaIsChosen) {
  Scenario scenario = TwoAreas(InAreaA({Choose("cmbPrintFmt", 0)}));
  scenario.AreaPrinter({});
  const Trace trace = scenario.Run();
  EXPECT_EQ(PrinterIndex(trace, kAtAreaA - 1), -1) << "there is no row without an area";
  EXPECT_EQ(PrinterIndex(trace, kAtAreaA), 3);
  const Texts queries = trace.Queries();
  ASSERT_EQ(queries.size(), 6U);
  EXPECT_EQ(queries[3],
            "select FPrintDevice from TDBill_AreaPrinterDevice where ftrantype=21 and "
            "FIP='192.168.1.10' and FTDBillName='销售单' and FStockArea=''");
  EXPECT_EQ(queries[4],
            "select FPrintDevice from TDBill_AreaPrinterDevice where ftrantype=21 and "
            "FIP='192.168.1.10' and FTDBillName='销售单' and FStockArea='A'");
  EXPECT_EQ(queries[5], queries[4]);
}

TEST(StoredAreaPrinter, OfAnotherMachineIsNotShown) {
  Scenario scenario = TwoAreas(InAreaA({}));
  scenario.AreaPrinter({{"FIp", "192.168.1.11"}});
  EXPECT_EQ(PrinterIndex(scenario.Run(), kAtAreaA), -1);
}

TEST(StoredAreaPrinter, OfPrintersOfOneNameTheFirstIsSelected) {
  Scenario scenario = TwoAreas(InAreaA({}));
  scenario.Set("printers", {"P1", "P2", "P2"}).AreaPrinter({});
  EXPECT_EQ(PrinterIndex(scenario.Run(), kAtAreaA), 3);
}

TEST(StoredAreaPrinter, IsLookedForBehindTheDefaultEntry) {
  const auto indexFor = [](const char* stored) {
    Scenario scenario = TwoAreas(InAreaA({}));
    scenario.AreaPrinter({{"FPrintDevice", stored}});
    return PrinterIndex(scenario.Run(), kAtAreaA);
  };
  EXPECT_EQ(indexFor("--------------------"), 1);
  EXPECT_EQ(indexFor("windows默认打印机"), -1);
  EXPECT_EQ(indexFor("p2"), -1);
}

TEST(StoredAreaPrinter, OfACombinationWithoutOneTheFormerSelectionStays) {
  Scenario scenario = TwoAreas(InAreaA({Choose("cmbStockArea", 1), Choose("cmbStockArea", 0)}));
  scenario.AreaPrinter({}).AreaPrinter({{"FStockArea", "B"}, {"FPrintDevice", ""}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(PrinterIndex(trace, kAtAreaA), 3);
  EXPECT_EQ(PrinterIndex(trace, kAtAreaA + 1), 3) << "an empty printer equals no entry";
  EXPECT_EQ(PrinterIndex(
                TwoAreas(InAreaA({Choose("cmbPrintDevice", 2), Choose("cmbStockArea", 1)})).Run(),
                kAtAreaA + 2),
            2)
      << "there is no row";
}

TEST(StoredAreaPrinter, ThatCannotBeReadIsReported) {
  for (const char* request : {"query", "LocalMachineId"}) {
    Scenario scenario = TwoAreas(InAreaA({}));
    scenario.Fault({{"on", request},
                    {"nth", request == std::string("query") ? 3 : 1},
                    {"number", 5},
                    {"description", "表已锁定"}});
    EXPECT_EQ(scenario.Run().Messages(), (Texts{"表已锁定"})) << request;
  }
}

TEST(AreaPrinterSaving, ReplacesTheRowAndReportsSuccess) {
  Scenario scenario = TwoAreas(InAreaA({Choose("cmbPrintDevice", 2), kSave}));
  scenario.AreaPrinter({});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Executed(),
            (Texts{"delete from TDBill_AreaPrinterDevice where FIp='192.168.1.10' and "
                   "FTranType=21 and FTdBillName='销售单' and FStockArea='A'",
                   "Insert Into TDBill_AreaPrinterDevice(FPrintDevice,FIp,FTranType,FTdBillName,"
                   "FStockArea) Values('P1','192.168.1.10',21,'销售单','A')"}));
  EXPECT_EQ(trace.Lines("connect").size(), 1U);
  EXPECT_EQ(trace.Lines("box"),
            (std::vector<Json>{{{"e", "box"}, {"text", "保存成功！"}, {"style", 64}}}));
  ASSERT_EQ(trace.Table("TDBill_AreaPrinterDevice").size(), 1U);
  EXPECT_EQ(trace.Table("TDBill_AreaPrinterDevice")[0].at("FPrintDevice"), "P1");
  EXPECT_EQ(trace.Lines("controls").size(), kAtAreaA + 3) << "the dialog stays open";
}

TEST(AreaPrinterSaving, TwiceLeavesOneRow) {
  const Trace trace =
      TwoAreas(InAreaA({Choose("cmbPrintDevice", 2), kSave, Choose("cmbPrintDevice", 3), kSave}))
          .Run();
  ASSERT_EQ(trace.Table("TDBill_AreaPrinterDevice").size(), 1U);
  EXPECT_EQ(trace.Table("TDBill_AreaPrinterDevice")[0].at("FPrintDevice"), "P2");
}

TEST(AreaPrinterSaving, StoresTheDefaultAsEmptyAndTheSeparatorAsItsText) {
  const auto stored = [](const Scenario::Steps& choice) {
    return TwoAreas(InAreaA(choice)).Run().Table("TDBill_AreaPrinterDevice")[0].at("FPrintDevice");
  };
  EXPECT_EQ(stored({Choose("cmbPrintDevice", 0), kSave}), "");
  EXPECT_EQ(stored({Choose("cmbPrintDevice", 1), kSave}), "--------------------");
  EXPECT_EQ(stored({kSave}), "") << "no entry is selected";
}

TEST(AreaPrinterSaving, AnEmptyFormatAndAnEmptyAreaAreStoredAsSuch) {
  Scenario scenario;
  scenario.StockArea(nullptr).OpenAreaPrintSet({Choose("cmbPrintDevice", 2), kSave});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(Controls(trace).at("cmbStockArea").at("list").empty());
  EXPECT_EQ(trace.Table("TDBill_AreaPrinterDevice"), (std::vector<Json>{{{"FIp", "192.168.1.10"},
                                                                         {"FTranType", 12},
                                                                         {"FTdBillName", ""},
                                                                         {"FStockArea", ""},
                                                                         {"FPrintDevice", "P1"}}}));
}

TEST(AreaPrinterSaving, AfterAChangeOfTheBillTypeTheFormatIsEmpty) {
  const Trace trace =
      TwoAreas(InAreaA({Choose("cmbBillType", 0), Choose("cmbPrintDevice", 2), kSave})).Run();
  ASSERT_EQ(trace.Table("TDBill_AreaPrinterDevice").size(), 1U);
  EXPECT_EQ(trace.Table("TDBill_AreaPrinterDevice")[0].at("FTdBillName"), "");
  EXPECT_EQ(trace.Table("TDBill_AreaPrinterDevice")[0].at("FTranType"), 12);
}

TEST(AreaPrinterSaving, AFailedInsertLosesTheOldRow) {
  Scenario scenario = TwoAreas(InAreaA({kSave}));
  scenario.AreaPrinter({}).Fault(
      {{"on", "execute"}, {"nth", 2}, {"number", 5}, {"description", "磁盘已满"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"磁盘已满"}));
  EXPECT_TRUE(trace.Table("TDBill_AreaPrinterDevice").empty());
  EXPECT_EQ(trace.Lines("controls").size(), kAtAreaA + 2) << "the dialog stays open";
}

TEST(AreaPrinterSaving, ALockIsShownAndNotRetried) {
  Scenario scenario = TwoAreas(InAreaA({kSave}));
  scenario.AreaPrinter({}).Fault({{"on", "execute"}, {"number", 5}, {"description", "表已锁定"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"表已锁定"}));
  EXPECT_EQ(trace.Executed().size(), 1U);
  EXPECT_EQ(trace.Table("TDBill_AreaPrinterDevice").size(), 1U);
}

TEST(AreaPrinterSaving, AQuoteInTheFormatsNameBreaksTheStatementsAndHarmsNothing) {
  Scenario scenario = TwoAreas({Choose("cmbBillType", 1), Choose("cmbPrintFmt", 1), kSave});
  scenario.AddFormat({{"FTDBillName", "O'Brien"}}).AreaPrinter({});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 2U) << "when it was chosen, and when it was saved";
  EXPECT_EQ(trace.Table("TDBill_AreaPrinterDevice").size(), 1U);
}

TEST(AreaPrinterSaving, AQuoteInThePrintersNameBreaksTheInsertAndLosesTheOldRow) {
  Scenario scenario = TwoAreas(InAreaA({Choose("cmbPrintDevice", 2), kSave}));
  scenario.Set("printers", {"P'1", "P2"}).AreaPrinter({});
  const Trace trace = scenario.Run();
  ASSERT_EQ(trace.Messages().size(), 1U);
  EXPECT_NE(trace.Messages()[0], "保存成功！");
  EXPECT_EQ(trace.Executed().size(), 2U);
  EXPECT_TRUE(trace.Table("TDBill_AreaPrinterDevice").empty());
}

TEST(AreaPrinterSaving, AnAreaThatIsAQuoteBreaksTheStatementsAndHarmsNothing) {
  Scenario scenario = TwoAreas(InAreaA({Choose("cmbPrintDevice", 2), kSave}));
  scenario.StockArea("'1").AreaPrinter({});
  const Trace trace = scenario.Run();
  EXPECT_EQ(Controls(trace).at("cmbStockArea").at("list"), (Json{"'", "A", "B"}))
      << "so that the first area is chosen";
  ASSERT_EQ(trace.Messages().size(), 2U) << "when it was chosen, and when it was saved";
  EXPECT_NE(trace.Messages()[1], "保存成功！");
  EXPECT_EQ(trace.Executed().size(), 1U);
  EXPECT_EQ(trace.Table("TDBill_AreaPrinterDevice").size(), 1U);
}

TEST(AreaPrinterClosing, WritesNothing) {
  const std::vector<Scenario::Steps> ways = {{kClose}, {}};
  for (const Scenario::Steps& way : ways) {
    Scenario::Steps steps = {Choose("cmbPrintDevice", 2)};
    steps.insert(steps.end(), way.begin(), way.end());
    const Trace trace = TwoAreas(InAreaA(steps)).Run();
    EXPECT_TRUE(trace.Executed().empty());
    EXPECT_EQ(trace.Lines("unload").size(), 1U);
  }
}

}  // namespace
}  // namespace td
