// Pictures of the goods on the rows, which go from the database through a file onto the page.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kToken = "<商品图片>";
const Json kImage = {{"base64", "AQID"}};

// Rows of these goods, each with its picture and behind it a text. Goods 7 and 8 have pictures.
Scenario GoodsScenario(const std::vector<Json>& goods) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", kToken}, {"FObjectCaption", "图"}});
  scenario.Item({{"FObjectCaption", "后"}});
  scenario.GoodsPicture(7, kImage).GoodsPicture(8, kImage);
  Json data = {{"columns", {"FInterID", "FItemiD"}}, {"rows", Json::array()}};
  for (const Json& id : goods) data["rows"].push_back({1, id});
  scenario.Print({{"data", data}});
  return scenario;
}

Texts PicturesOf(const Trace& trace) {
  Texts pictures;
  for (const Drawn& drawn : trace.PicturesDrawn()) pictures.push_back(drawn.text);
  return pictures;
}

// "save picture/7.jpg", …
Texts FileActions(const Trace& trace) {
  Texts actions;
  for (const Json& line : trace.Lines("file")) {
    actions.push_back(line["a"].get<std::string>() + " " + line["path"].get<std::string>());
  }
  return actions;
}

// Statements that ask for a goods picture.
Texts GoodsQueries(const Trace& trace) {
  Texts queries;
  for (const std::string& sql : trace.Queries()) {
    if (sql.find("t_icitem_Picture") != std::string::npos) queries.push_back(sql);
  }
  return queries;
}

TEST(GoodsPictures, FollowTheirRowsInTheSizeOfTheItem) {
  Scenario scenario = GoodsScenario({7, 8});
  scenario.Format({{"FAdjuctLeft", 7}, {"FAdjuctTop", 40}});
  EXPECT_EQ(scenario.Run().PicturesDrawn(),
            (std::vector<Drawn>{{1, "goods:7", 107, 1040, 500, 200},
                                {1, "goods:8", 107, 1340, 500, 200}}));
}

TEST(GoodsPictures, OnLaterPagesMoveWithTheShift) {
  Scenario scenario = GoodsScenario({7, 8});
  scenario.Format({{"FRowsPerPage", 1}, {"FAdjuctHeader", 150}});
  EXPECT_EQ(scenario.Run().PicturesDrawn().back(), (Drawn{2, "goods:8", 100, 1150, 500, 200}));
}

TEST(GoodsPictures, ASizeOfZeroIsPassedOn) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", kToken}, {"FWidth", 0}, {"FHeight", 0}});
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}}).GoodsPicture(7, kImage);
  EXPECT_EQ(scenario.Run().Calls("DrawPicture"), (Json{{"goods:7", 100, 1000, 0, 0}}));
}

TEST(GoodsPictures, InTheHeadTheTokenIsAConstantText) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", kToken}, {"FObjectCaption", "图"}, {"FSite", 1}});
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}}).GoodsPicture(7, kImage);
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"图"}));
  EXPECT_TRUE(GoodsQueries(trace).empty());
}

TEST(GoodsPictures, InTheHeadOverBlankRowsTheTokenMeansNothing) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", kToken}, {"FSite", 1}}).BlankRows(1).Print();
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}}).GoodsPicture(7, kImage);
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{""})) << "constants are on the sheet already";
  EXPECT_TRUE(GoodsQueries(trace).empty());
}

TEST(GoodsPictures, TheWindowOfTheStockAreasHasNone) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", kToken}, {"FObjectCaption", "图"}}).PrintByArea();
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}}).GoodsPicture(7, kImage);
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"图"}));
  EXPECT_TRUE(GoodsQueries(trace).empty());
}

TEST(GoodsPictures, OnlyTheWholeNameIsTheToken) {
  for (const char* name : {"商品图片", "<商品图片> ", "<商品图>"}) {
    Scenario scenario;
    scenario.Item({{"FObjectFieldName", name}});
    scenario.Data({"FInterID", "FItemiD"}, {{1, 7}}).GoodsPicture(7, kImage);
    EXPECT_EQ(scenario.Run().Texts(), (Texts{"文本"})) << name;
  }
}

TEST(GoodsPictures, AreSavedAsAFileAndLoadedFromIt) {
  const Trace trace = GoodsScenario({7}).Run();
  EXPECT_EQ(GoodsQueries(trace),
            (Texts{"select FItemID,FPicture,FPicPath from t_icitem_Picture where FItemID=7"}));
  EXPECT_EQ(FileActions(trace), (Texts{"save picture/7.jpg", "load picture/7.jpg"}));
}

TEST(GoodsPictures, OfTheSameGoodsAreFetchedAnewForEveryRow) {
  const Trace trace = GoodsScenario({7, 7}).Run();
  EXPECT_EQ(GoodsQueries(trace).size(), 2U);
  EXPECT_EQ(FileActions(trace),
            (Texts{"save picture/7.jpg", "load picture/7.jpg", "delete picture/7.jpg",
                   "save picture/7.jpg", "load picture/7.jpg"}));
}

TEST(GoodsPictures, AStaleFileIsDeletedEvenIfTheGoodsLostItsPicture) {
  Scenario scenario = GoodsScenario({9});
  scenario.Set("pictures", Json::array({"picture/9.jpg"}));
  const Trace trace = scenario.Run();
  EXPECT_EQ(FileActions(trace), (Texts{"delete picture/9.jpg"}));
  EXPECT_TRUE(trace.PicturesDrawn().empty());
}

TEST(GoodsPictures, TheFileIsDeletedBeforeTheDatabaseIsAsked) {
  Scenario scenario = GoodsScenario({7});
  scenario.Set("pictures", Json::array({"picture/7.jpg"}));
  scenario.Fault({{"on", "query"},
                  {"number", 9},
                  {"description", "服务器断开"},
                  {"match", "t_icitem_Picture"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(FileActions(trace), (Texts{"delete picture/7.jpg"}));
  EXPECT_EQ(trace.Messages(), (Texts{"服务器断开"}));
}

TEST(GoodsPictures, OfGoodsWithoutOneAreLeftOutSilently) {
  const Trace trace = GoodsScenario({9, 7}).Run();
  EXPECT_EQ(PicturesOf(trace), (Texts{"goods:7"}));
  EXPECT_EQ(trace.Texts(), (Texts{"后", "后"}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(GoodsPictures, OnlyTheFirstOfSeveralCounts) {
  Scenario scenario = GoodsScenario({7, 5});
  scenario.GoodsPicture(7, nullptr).GoodsPicture(5, nullptr).GoodsPicture(5, kImage);
  const Trace trace = scenario.Run();
  EXPECT_EQ(PicturesOf(trace), (Texts{"goods:7"}));
  EXPECT_EQ(trace.Messages().size(), 1U) << "the first one of goods 5 is Null";
}

TEST(GoodsPictures, AMissingFolderIsShownOnceForEveryItem) {
  Scenario scenario = GoodsScenario({7, 9, 8});
  scenario.Set("pictureFolder", false);
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"路径未找到", "路径未找到"})) << "goods 9 have no picture";
  EXPECT_EQ(trace.Lines("box")[0].at("style"), 64);
  EXPECT_EQ(FileActions(trace), (Texts{"save picture/7.jpg", "save picture/8.jpg"}));
  EXPECT_TRUE(trace.PicturesDrawn().empty());
  EXPECT_EQ(trace.Texts(), (Texts{"后", "后", "后"})) << "the bands go on";
}

TEST(GoodsPictures, AStoredNullIsShownAndSkipped) {
  Scenario scenario = GoodsScenario({7, 5, 8});
  scenario.GoodsPicture(5, nullptr);
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_EQ(PicturesOf(trace), (Texts{"goods:7", "goods:8"}));
  EXPECT_EQ(trace.Texts(), (Texts{"后", "后", "后"}));
}

TEST(GoodsPictures, AFileThatDoesNotLoadIsShownAndLeavesNoPicture) {
  Scenario scenario = GoodsScenario({7, 8, nullptr});
  scenario.Fault(
      {{"on", "loadpicture"}, {"number", 481}, {"description", "图片无效"}, {"match", "8.jpg"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages(), (Texts{"图片无效"}));
  EXPECT_EQ(PicturesOf(trace), (Texts{"goods:7"}));
  EXPECT_EQ(FileActions(trace).back(), "load picture/8.jpg");
}

TEST(GoodsPictures, NoErrorOfLoadingIsForgivenOrTriedAgain) {
  for (const auto& [number, description] :
       std::vector<std::pair<int, const char*>>{{5, "表被锁"}, {94, "Null"}, {3265, "无此列"}}) {
    Scenario scenario = GoodsScenario({7, 8});
    scenario.Fault({{"on", "query"},
                    {"number", number},
                    {"description", description},
                    {"match", "FItemID=7"}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Messages(), (Texts{description}));
    EXPECT_EQ(GoodsQueries(trace).size(), 2U);
    EXPECT_EQ(PicturesOf(trace), (Texts{"goods:8"}));
  }
}

TEST(GoodsPictures, WithoutTheTableEveryItemShowsTheError) {
  Scenario scenario = GoodsScenario({7, 8});
  const Trace trace = scenario.DropTable("t_icitem_Picture").Run();
  EXPECT_EQ(trace.Messages().size(), 2U);
  EXPECT_EQ(trace.Texts(), (Texts{"后", "后"}));
}

TEST(GoodsPictures, ARowOfNoGoodsShowsThePictureOfTheRowBefore) {
  const Trace trace = GoodsScenario({7, nullptr}).Run();
  EXPECT_EQ(trace.PicturesDrawn(), (std::vector<Drawn>{{1, "goods:7", 100, 1000, 500, 200},
                                                       {1, "goods:7", 100, 1300, 500, 200}}));
  EXPECT_EQ(GoodsQueries(trace).size(), 1U);
}

TEST(GoodsPictures, ARowOfNoGoodsBehindOneWithoutAPictureShowsNone) {
  EXPECT_EQ(PicturesOf(GoodsScenario({7, 9, nullptr}).Run()), (Texts{"goods:7"}));
}

TEST(GoodsPictures, TheFirstRowsOfNoGoodsShowNone) {
  const Trace trace = GoodsScenario({nullptr, nullptr, 8}).Run();
  EXPECT_EQ(trace.PicturesDrawn(), (std::vector<Drawn>{{1, "goods:8", 100, 1600, 500, 200}}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(GoodsPictures, WithoutTheColumnOfTheGoodsNoneIsDrawnAndNothingSaid) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", kToken}}).Item({{"FObjectCaption", "后"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"后"}));
  EXPECT_TRUE(trace.Messages().empty());
  EXPECT_TRUE(GoodsQueries(trace).empty());
}

TEST(GoodsPictures, ThePictureBeforeIsThatOfTheWindow) {
  Scenario scenario = GoodsScenario({7});
  scenario.Print({{"data", {{"columns", {"FInterID", "FItemiD"}}, {"rows", {{1, nullptr}}}}}});
  EXPECT_EQ(PicturesOf(scenario.Run()), (Texts{"goods:7"})) << "each print has a window of its own";
}

TEST(GoodsPictures, ARunOnTheSameWindowStartsWithTheLastPicture) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", kToken}}).GoodsPicture(7, kImage);
  scenario.Data({"FInterID", "FItemiD"}, {{1, nullptr}, {1, 7}});
  scenario.Preview({{{"key", "pageset"}, {"confirm", true}}});
  EXPECT_EQ(PicturesOf(scenario.Run()), (Texts{"goods:7", "goods:7", "goods:7"}));
}

TEST(GoodsPictures, GoodsMayBeNamedByTextAndRoundToAWholeNumber) {
  const Trace trace = GoodsScenario({"7", 7.5, -3}).Run();
  EXPECT_EQ(PicturesOf(trace), (Texts{"goods:7", "goods:8"}));
  EXPECT_EQ(GoodsQueries(trace).back(),
            "select FItemID,FPicture,FPicPath from t_icitem_Picture where FItemID=-3");
}

TEST(GoodsPictures, GoodsThatAreNoNumberEndTheBandWithAMessage) {
  for (const Json& id : {Json("甲"), Json(3e9)}) {
    const Trace trace = GoodsScenario({id, 8}).Run();
    EXPECT_EQ(trace.Messages().size(), 1U) << id;
    EXPECT_EQ(trace.Texts(), (Texts{"后"})) << "only that of the next row";
    EXPECT_EQ(PicturesOf(trace), (Texts{"goods:8"}));
  }
}

TEST(GoodsPictures, ANullSizeSkipsTheDrawingOnly) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", kToken}, {"FWidth", nullptr}});
  scenario.Item({{"FObjectFieldName", kToken}, {"FHeight", nullptr}});
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}}).GoodsPicture(7, kImage);
  const Trace trace = scenario.Run();
  EXPECT_EQ(GoodsQueries(trace).size(), 2U);
  EXPECT_TRUE(trace.PicturesDrawn().empty());
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(GoodsPictures, ALockWhileDrawingRepeatsTheDrawingAlone) {
  Scenario scenario = GoodsScenario({7});
  scenario.Fault({{"on", "DrawPicture"}, {"number", 5}, {"description", "被锁"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(PicturesOf(trace), (Texts{"goods:7", "goods:7"}));
  EXPECT_EQ(GoodsQueries(trace).size(), 1U);
}

TEST(GoodsPictures, BehindTheLastRowEndTheBandWithAMessage) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", kToken}, {"FSite", 5}}).Item({{"FSite", 5}});
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}}).GoodsPicture(7, kImage);
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.PicturesDrawn().empty());
  EXPECT_TRUE(trace.Texts().empty());
  EXPECT_EQ(trace.Messages().size(), 1U);
}

}  // namespace
}  // namespace td
