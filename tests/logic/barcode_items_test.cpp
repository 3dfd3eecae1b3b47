// Barcodes of columns of the print data.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kBillNo = "<单号条码图>";
constexpr const char* kRandom = "<随机条码图>";
constexpr const char* kUser = "<用户条码图>";
constexpr const char* kSample = "barcode:110101-234234-1/6";

// One row of a bill that has all three codes.
Scenario CodeScenario() {
  Scenario scenario;
  scenario.Data({"FInterID", "FBillNo", "FBillNoBarCode", "FUserBarCode"},
                {{1, "XS-1", "R-2", "U-3"}});
  return scenario;
}

// An item that asks for a barcode in a band.
Scenario& Code(Scenario& scenario, const char* token, int site, int top = 1000) {
  return scenario.Item(
      {{"FObjectFieldName", token}, {"FObjectCaption", "码"}, {"FSite", site}, {"FTop", top}});
}

Texts PicturesOf(const Trace& trace) {
  Texts pictures;
  for (const Drawn& drawn : trace.PicturesDrawn()) pictures.push_back(drawn.text);
  return pictures;
}

// What the three tokens give in a band.
std::pair<Texts, Texts> PicturesAndTextsIn(int site) {
  Scenario scenario = CodeScenario();
  for (const char* token : {kBillNo, kRandom, kUser}) Code(scenario, token, site);
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty());
  return {PicturesOf(trace), trace.Texts()};
}

TEST(BarcodeItems, InTheHeadAllThreeTokensDrawTheirColumn) {
  EXPECT_EQ(PicturesAndTextsIn(1),
            (std::pair{Texts{"barcode:XS-1", "barcode:R-2", "barcode:U-3"}, Texts{}}));
}

TEST(BarcodeItems, InTheOtherBandsTheUserTokenIsAConstantText) {
  for (const int site : {2, 3}) {
    EXPECT_EQ(PicturesAndTextsIn(site),
              (std::pair{Texts{"barcode:XS-1", "barcode:R-2"}, Texts{"码"}}));
  }
}

TEST(BarcodeItems, InTheHeadOverBlankRowsNoTokenMeansAnything) {
  Scenario scenario = CodeScenario();
  for (const char* token : {kBillNo, kRandom, kUser}) Code(scenario, token, 1);
  const Trace trace = scenario.BlankRows(1).Print().Run();
  EXPECT_TRUE(trace.PicturesDrawn().empty());
  EXPECT_EQ(trace.Texts(), (Texts{"", "", ""})) << "constants are on the sheet already";
}

TEST(BarcodeItems, TheUserTokenOutsideTheHeadShowsTheColumnOfItsVariable) {
  Scenario scenario = CodeScenario();
  Code(scenario, kUser, 3).Variable(kUser, "FUserBarCode");
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"码U-3"}));
}

TEST(BarcodeItems, ATokenWinsOverTheVariableOfItsName) {
  for (const int site : {1, 3}) {
    Scenario scenario = CodeScenario();
    Code(scenario, kBillNo, site).Variable(kBillNo, "FUserBarCode");
    const Trace trace = scenario.Run();
    EXPECT_EQ(PicturesOf(trace), (Texts{"barcode:XS-1"}));
    EXPECT_TRUE(trace.Texts().empty());
  }
}

TEST(BarcodeItems, OnlyTheWholeNameIsAToken) {
  for (const char* name : {"单号条码图", "<单号条码图> ", "<<单号条码图>>", "<单号条码>"}) {
    for (const int site : {1, 3}) {
      Scenario scenario = CodeScenario();
      const Trace trace = Code(scenario, name, site).Run();
      EXPECT_TRUE(trace.PicturesDrawn().empty()) << name;
      EXPECT_EQ(trace.Texts(), (Texts{"码"})) << name;
    }
  }
}

TEST(BarcodeItems, TheWindowOfTheStockAreasHasNone) {
  Scenario scenario = CodeScenario();
  for (const char* token : {kBillNo, kRandom, kUser}) Code(scenario, token, 1);
  Code(scenario, kBillNo, 3);
  const Trace trace = scenario.PrintByArea().Run();
  EXPECT_TRUE(trace.PicturesDrawn().empty());
  EXPECT_TRUE(trace.Lines("barcode").empty());
  EXPECT_EQ(trace.Texts().size(), 4U);
}

TEST(BarcodeItems, ACodeFillsItsBoxAndIsMadeFromTheDataPutJustBefore) {
  Scenario scenario = CodeScenario();
  Code(scenario, kBillNo, 3).Format({{"FAdjuctLeft", 7}, {"FAdjuctTop", 40}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("DrawPicture"), (Json{{"barcode:XS-1", 107, 1040, 500, 200}}));
  const std::string text = trace.Text();
  EXPECT_LT(text.find(R"("e":"barcode")"), text.find("DrawPicture"));
}

TEST(BarcodeItems, ASizeOfZeroIsPassedOn) {
  Scenario scenario = CodeScenario();
  scenario.Item({{"FObjectFieldName", kRandom}, {"FWidth", 0}, {"FHeight", 0}});
  EXPECT_EQ(scenario.Run().Calls("DrawPicture"), (Json{{"barcode:R-2", 100, 1000, 0, 0}}));
}

TEST(BarcodeItems, InTheRowsAllCodesLieOnOneSpotTheLastOnTop) {
  Scenario scenario;
  Code(scenario, kBillNo, 3).Format({{"FRowsPerPage", 2}, {"FAdjuctHeader", 150}});
  scenario.Data({"FInterID", "FBillNo"}, {{1, "A"}, {1, "B"}, {1, "C"}});
  EXPECT_EQ(scenario.Run().PicturesDrawn(),
            (std::vector<Drawn>{{1, "barcode:A", 100, 1000, 500, 200},
                                {1, "barcode:B", 100, 1000, 500, 200},
                                {2, "barcode:C", 100, 1000, 500, 200}}))
      << "the shift of later pages does not move them either";
}

TEST(BarcodeItems, FontAndPointAreSetAsForAText) {
  Scenario scenario = CodeScenario();
  scenario.Item({{"FObjectFieldName", kBillNo}, {"FFontName", "黑体"}, {"FAutoSize", 1}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("FontName"), (Json{"黑体"}));
  EXPECT_EQ(trace.Puts("CurrentY"), (Json{1000}));
  EXPECT_TRUE(trace.Calls("PutParagraph").empty());
}

TEST(BarcodeItems, NumbersAreEncodedAsTheirText) {
  Scenario scenario;
  Code(scenario, kBillNo, 3).Data({"FInterID", "FBillNo"}, {{1, 20240501}, {1, 0.5}});
  EXPECT_EQ(PicturesOf(scenario.Run()), (Texts{"barcode:20240501", "barcode:0.5"}));
}

TEST(BarcodeItems, WithoutAValueTheFirstCodeOfAWindowIsTheSample) {
  for (const int site : {1, 3}) {
    Scenario missing;
    EXPECT_EQ(PicturesOf(Code(missing, kBillNo, site).Run()), (Texts{kSample}));
    Scenario null;
    Code(null, kRandom, site).Data({"FInterID", "FBillNoBarCode"}, {{1, nullptr}});
    const Trace trace = null.Run();
    EXPECT_EQ(PicturesOf(trace), (Texts{kSample}));
    EXPECT_TRUE(trace.Messages().empty());
  }
}

TEST(BarcodeItems, WithoutAValueTheCodeBeforeIsDrawnAgain) {
  Scenario scenario;
  Code(scenario, kBillNo, 3, 0);
  Code(scenario, kRandom, 3, 500).Data({"FInterID", "FBillNo"}, {{1, "A"}, {1, nullptr}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(PicturesOf(trace), (Texts{"barcode:A", "barcode:A", "barcode:A", "barcode:A"}));
  EXPECT_EQ(trace.Lines("barcode").size(), 1U);
}

TEST(BarcodeItems, AnEmptyTextIsAValue) {
  Scenario scenario;
  Code(scenario, kBillNo, 3).Data({"FInterID", "FBillNo"}, {{1, "A"}, {1, ""}});
  EXPECT_EQ(PicturesOf(scenario.Run()), (Texts{"barcode:A", "barcode:"}));
}

TEST(BarcodeItems, TheLastCodeOutlivesTheRunButNotTheWindow) {
  Scenario scenario;
  Code(scenario, kRandom, 3, 0);
  Code(scenario, kBillNo, 3, 500).Data({"FInterID", "FBillNo"}, {{1, "A"}});
  scenario.Preview({{{"key", "pageset"}, {"confirm", true}}}).Print();
  EXPECT_EQ(PicturesOf(scenario.Run()),
            (Texts{kSample, "barcode:A", "barcode:A", "barcode:A", kSample, "barcode:A"}));
}

TEST(BarcodeItems, ATextThatCannotBeEncodedEndsTheBandWithAMessage) {
  Scenario scenario = CodeScenario();
  Code(scenario, kBillNo, 3).Item({{"FObjectCaption", "后"}});
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}});
  scenario.Fault({{"on", "barcodepicture"}, {"number", 481}, {"description", "不能编码"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"不能编码"}));
  EXPECT_EQ(trace.Texts(), (Texts{"脚"})) << "the run goes on";
}

TEST(BarcodeItems, ALockRepeatsTheStatementThatMetIt) {
  Scenario put = CodeScenario();
  Code(put, kBillNo, 3).Fault({{"on", "barcode"}, {"number", 5}, {"description", "被锁"}});
  EXPECT_EQ(put.Run().Lines("barcode").size(), 2U);
  EXPECT_EQ(put.Run().Calls("DrawPicture").size(), 1U);

  Scenario drawing = CodeScenario();
  Code(drawing, kBillNo, 1).Fault({{"on", "DrawPicture"}, {"number", 5}, {"description", "被锁"}});
  EXPECT_EQ(drawing.Run().Lines("barcode").size(), 1U);
  EXPECT_EQ(drawing.Run().Calls("DrawPicture").size(), 2U);
}

TEST(BarcodeItems, ANullSizeSkipsTheDrawingButNotTheData) {
  Scenario scenario = CodeScenario();
  scenario.Item({{"FObjectFieldName", kBillNo}, {"FWidth", nullptr}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Lines("barcode").size(), 1U);
  EXPECT_TRUE(trace.PicturesDrawn().empty());
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(BarcodeItems, BehindTheLastRowACodeEndsTheBandWithAMessage) {
  Scenario scenario = CodeScenario();
  Code(scenario, kBillNo, 5).Item({{"FSite", 5}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.PicturesDrawn().empty());
  EXPECT_TRUE(trace.Texts().empty());
  EXPECT_EQ(trace.Messages().size(), 1U);
}

}  // namespace
}  // namespace td
