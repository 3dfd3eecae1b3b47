// What the user of a replay does in a print window, and what the surface makes of it.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

// The kinds of the lines that concern the window itself.
std::vector<std::string> WindowLines(const Trace& trace) {
  std::vector<std::string> lines;
  for (const Json& line : trace.Lines()) {
    if (line["e"] == "show" || line["e"] == "unload" || line["e"] == "raised" ||
        line["e"] == "box") {
      lines.push_back(line["e"]);
    }
  }
  return lines;
}

TEST(ReplayedUser, ClosesTheWindowAfterTheLastStep) {
  const Trace trace = Scenario().Preview().Run();
  EXPECT_EQ(trace.Lines().front(), (Json{{"e", "show"}, {"window", "frmTdPrint"}}));
  EXPECT_EQ(WindowLines(trace), (std::vector<std::string>{"show", "unload"})) << trace.Text();
}

TEST(ReplayedUser, DoesNothingMoreInAClosedWindow) {
  const Trace trace = Scenario().Preview({"exit", "zoom", "exit"}).Run();
  EXPECT_EQ(WindowLines(trace), (std::vector<std::string>{"show", "unload"}));
  EXPECT_EQ(trace.Puts("Zoom"), Json::array());
}

TEST(ReplayedUser, PressesADisabledButtonInVain) {
  Scenario scenario;
  scenario.Fault({{"on", "StartDoc"}, {"number", 5}, {"description", "卡纸"}});
  const Trace trace = scenario.Preview({"print", "zoom"}).Run();
  EXPECT_EQ(trace.Calls("PrintDoc"), Json::array()) << trace.Text();
  EXPECT_EQ(trace.Puts("Zoom"), Json::array());
}

TEST(ReplayedUser, WritesPropertiesUnseen) {
  const Trace trace = Scenario().Preview({{{"put", {{"Zoom", 75}}}}, "zoom", "zoom"}).Run();
  EXPECT_EQ(trace.Puts("Zoom"), (Json{50, 100})) << trace.Text();
}

TEST(ReplayedUser, CancelsThePageSetupUnlessToldToConfirm) {
  const Trace trace = Scenario().Preview({"pageset"}).Run();
  EXPECT_EQ(trace.Calls("ShowPageSetup"), (Json::array({Json::array({1})})));
  EXPECT_EQ(trace.Executed(), std::vector<std::string>{});
}

TEST(ReplayedUser, ChoosesInThePageSetup) {
  const Json choice = {{"key", "pageset"},
                       {"confirm", true},
                       {"put", {{"PaperSize", 9}, {"PaperWidth", 5000.5}, {"Device", "P2"}}}};
  const Trace trace = Scenario().Preview({choice}).Run();
  ASSERT_EQ(trace.Executed().size(), 3U) << trace.Text();
  EXPECT_NE(trace.Executed()[2].find("256,5000.5,16838,0,'P2'"), std::string::npos)
      << trace.Executed()[2];
  EXPECT_EQ(trace.Table("TDBill_PaperSize").size(), 1U);
}

TEST(ReplayedUser, GetsTheDefaultPrinterForAnUnknownOne) {
  const Json choice = {{"key", "pageset"}, {"confirm", true}, {"put", {{"Device", "P9"}}}};
  const Trace trace = Scenario().Preview({choice}).Run();
  ASSERT_EQ(trace.Executed().size(), 3U) << trace.Text();
  EXPECT_NE(trace.Executed()[2].find("'P1')"), std::string::npos) << trace.Executed()[2];
}

TEST(ReplayedUser, ActivatesAWindowAgain) {
  const Trace trace = Scenario().Preview({{{"activate", true}}}).Run();
  EXPECT_EQ(trace.Calls("StartDoc").size(), 1U);
}

TEST(ReplayedUser, HasNoWindowToWorkInWhenTheFirstActivationFails) {
  Scenario scenario;
  scenario.Fault(
      {{"on", "query"}, {"match", "PrintAdvertising"}, {"number", 5}, {"description", "断线"}});
  const Trace trace = scenario.Preview({"print"}).Run();
  EXPECT_EQ(WindowLines(trace), (std::vector<std::string>{"show"})) << trace.Text();
  EXPECT_EQ(trace.After()["PrintOk"], false);
}

TEST(ReplayedUser, SeesNoWindowInASilentPrint) {
  EXPECT_EQ(WindowLines(Scenario().Run()), std::vector<std::string>{});
}

TEST(ReplayedSurface, FiresItsEventsInsideTheOperations) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 1}}).Bills({2});
  EXPECT_EQ(scenario.Run().Outline(),
            (std::vector<std::string>{"StartDoc", "OnNewPage", "NewPage", "OnEndPage", "OnNewPage",
                                      "EndDoc", "OnEndPage", "OnEndDoc", "PrintDoc"}));
}

TEST(ReplayedSurface, RefusesAnUnknownPrinterAndKeepsTheDefault) {
  Scenario scenario;
  scenario.Set("defaultPrinter", "P2").MachinePaper({{"FDevice", "gone"}});
  const Trace trace =
      scenario.Preview({{{"key", "pageset"}, {"confirm", true}}}, {{"TDBillName", "销售单"}}).Run();
  EXPECT_EQ(trace.Puts("Device")[0], "gone");
  ASSERT_FALSE(trace.Executed().empty());
  EXPECT_NE(trace.Executed().back().find("'P2')"), std::string::npos) << trace.Text();
}

TEST(ReplayedSurface, StartsWithThePropertiesOfTheScenario) {
  Scenario scenario;
  scenario.Set("surface", {{"Zoom", 50}, {"PaperSize", 256}, {"PaperWidth", 1}});
  EXPECT_EQ(scenario.Preview({"zoom"}).Run().Puts("Zoom"), Json::array({100}));
}

TEST(ReplayedSurface, SetsUserPaperWhenAWidthIsWritten) {
  Scenario scenario;
  scenario.Format({{"FPaperSize", 256}, {"FPaperWidth", 12000}, {"FPaperHeight", 5000}});
  const Trace trace = scenario.Preview({{{"key", "pageset"}, {"confirm", true}}}).Run();
  ASSERT_FALSE(trace.Executed().empty());
  EXPECT_NE(trace.Executed().back().find(",256,12000,5000,"), std::string::npos) << trace.Text();
}

TEST(ReplayedFaults, LetTheNthAndTheFollowingRequestsFail) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "文本"}}).Bills({5});
  scenario.Fault({{"on", "TextBox"}, {"nth", 2}, {"times", 2}, {"number", 94}});
  // A failing request is recorded, and its statement is skipped.
  EXPECT_EQ(scenario.Run().Texts().size(), 5U);
  scenario.Fault({{"on", "TextBox"}, {"nth", 4}, {"number", 5}, {"description", "卡纸"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), std::vector<std::string>{"卡纸"}) << trace.Text();
}

TEST(ReplayedFaults, RepeatARequestThatMeetsALock) {
  Scenario scenario;
  scenario.Fault(
      {{"on", "query"}, {"match", "TDBill_PaperSize"}, {"times", 2}, {"description", "已锁定"}});
  std::size_t asked = 0;
  for (const std::string& sql : scenario.Run().Queries()) {
    asked += sql.find("TDBill_PaperSize") != std::string::npos ? 1U : 0U;
  }
  EXPECT_EQ(asked, 3U);
}

TEST(ReplayedFaults, CountOnlyMatchingRequests) {
  Scenario scenario;
  scenario.FieldItem("FName").Bills({3});
  scenario.Fault({{"on", "TextBox"}, {"match", "行3"}, {"number", 5}, {"description", "卡纸"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts().back(), "行3");
  EXPECT_EQ(trace.Messages(), std::vector<std::string>{"卡纸"});
}

TEST(ReplayedFaults, ReachPropertyWrites) {
  Scenario scenario;
  scenario.Fault({{"on", "put:ExportFile"}, {"number", 5}, {"description", "只读"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("ExportFile"), Json::array({"c:\\订单.html"}));
  EXPECT_EQ(trace.Calls("StartDoc"), Json::array());
}

TEST(ReplayedFaults, ReachTheClone) {
  Scenario scenario;
  scenario.Bills({2, 1}).Print().Print({{"data", "same"}});
  scenario.Fault({{"on", "clone"}, {"nth", 2}, {"number", 5}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.After(0)["clone"], 2) << trace.Text();
  EXPECT_EQ(trace.After(1)["clone"], trace.After(1)["row"]);
}

TEST(ReplayedCalls, RaiseAnErrorWithoutData) {
  const Trace trace = Scenario().Print({{"data", nullptr}}).Run();
  EXPECT_EQ(trace.Lines("raised"), (std::vector<Json>{{{"e", "raised"},
                                                       {"number", "0x800403e9"},
                                                       {"description", "没有可供打印的数据!"}}}));
  EXPECT_EQ(trace.After(),
            (Json::parse(R"({"e":"after","do":"DoPrint","PrintOk":false,"PrintBlankRows":0,)"
                         R"("TDBillName":"","row":null,"clone":null})")));
}

TEST(ReplayedCalls, CarryTheRequestStateToTheNextCallAndNotToTheNextScenario) {
  const Trace trace = Scenario().BlankRows(3).Run();
  EXPECT_EQ(trace.After()["PrintBlankRows"], 3);
  EXPECT_EQ(Scenario().Run().After()["PrintBlankRows"], 0);
}

TEST(ReplayedCalls, MarkTheWordsOfAnEngine) {
  const Trace trace = Scenario().DropTable("TDBill").Run();
  ASSERT_EQ(trace.Lines("box").size(), 1U) << trace.Text();
  EXPECT_EQ(trace.Lines("box")[0]["free"], true);
  const Trace own = Scenario().Format({{"FSelected", 0}}).Run();
  ASSERT_EQ(own.Lines("box").size(), 1U);
  EXPECT_FALSE(own.Lines("box")[0].contains("free"));
}

TEST(ReplayedNumbers, HaveNoNeedlessDecimals) {
  Scenario scenario;
  scenario.Format({{"FAdjuctLeft", -100.0}}).Item({{"FTop", 0.1}, {"FWidth", 1e20}});
  EXPECT_NE(scenario.Run().Text().find(R"(["文本",0,0.1,1e+20,200,0])"), std::string::npos)
      << scenario.Run().Text();
}

TEST(ReplayedPictures, LoadOnlyFilesThatAreThere) {
  Scenario scenario;
  scenario.Set("pictures", Json::array({"c:\\logo.bmp"}));
  scenario.Item({{"FTypeID", 2}, {"FPicturePath", "c:\\logo.bmp"}});
  EXPECT_EQ(scenario.Run().PicturesDrawn(),
            (std::vector<Drawn>{{1, "file:c:\\logo.bmp", 100, 1000, 0, 0}}));
  scenario.Item({{"FTypeID", 2}, {"FPicturePath", "c:\\none.bmp"}});
  EXPECT_EQ(scenario.Run().Lines("file").back()["path"], "c:\\none.bmp");
  EXPECT_EQ(scenario.Run().Messages().size(), 1U);
}

TEST(ReplayedPictures, GoThroughTheFolderOfGoodsPictures) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", "<商品图片>"}});
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}, {1, 7}});
  scenario.GoodsPicture(7, {{"base64", "AQID"}});
  const Trace trace = scenario.Run();
  std::vector<std::string> files;
  for (const Json& line : trace.Lines("file")) {
    EXPECT_EQ(line["path"], "picture/7.jpg");
    files.push_back(line["a"]);
  }
  EXPECT_EQ(files, (std::vector<std::string>{"save", "load", "delete", "save", "load"}));
  EXPECT_EQ(trace.PicturesDrawn().front().text, "goods:7") << trace.Text();

  const Trace without = scenario.Set("pictureFolder", false).Run();
  EXPECT_EQ(without.PicturesDrawn(), std::vector<Drawn>{});
  EXPECT_EQ(without.Messages().size(), 2U);
}

TEST(ReplayedBarcode, ShowsTheSampleTextFirst) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", "<单号条码图>"}});
  EXPECT_EQ(scenario.Run().PicturesDrawn().front().text, "barcode:110101-234234-1/6");
  scenario.Data({"FInterID", "FBillNo"}, {{1, "XS-1"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Lines("barcode"), (std::vector<Json>{{{"e", "barcode"}, {"v", "XS-1"}}}));
  EXPECT_EQ(trace.PicturesDrawn().front().text, "barcode:XS-1");
}

}  // namespace
}  // namespace td
