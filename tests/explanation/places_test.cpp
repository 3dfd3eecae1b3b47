// Where a message comes from.
#include <gtest/gtest.h>

#include "explanation/place_keeper.h"
#include "recording/recording_database.h"
#include "recording/recording_platform.h"
#include "scenario.h"
#include "service/printer.h"

namespace td {
namespace {

// Asks for the place whenever a message is shown.
class PlacedMessages : public Messages {
 public:
  explicit PlacedMessages(const PlaceKeeper& keeper) : keeper_(keeper) {}
  void ShowBox(const std::string& /*text*/, int /*style*/) override {
    places.push_back(keeper_.CurrentPlace());
  }
  std::vector<RunPlace> places;

 private:
  const PlaceKeeper& keeper_;
};

std::vector<RunPlace> PlacesOfMessages(const Scenario& scenario) {
  recording::RecordingPlatform recording(recording::ReadScenario(scenario.Document()));
  PlaceKeeper keeper;
  PlacedMessages messages(keeper);
  const Platform& real = recording.Get();
  Platform platform{real.database, real.pictures, messages, real.machine, real.windows, &keeper};
  const auto& call = std::get<recording::Print>(recording.GetScenario().calls.front().action);
  const auto& rows = std::get<recording::PrintRows>(call.data);
  Printer(platform).DoPrint(
      true, "recording", 21, false, false,
      std::make_shared<recording::RecordingRecordset>(
          recording.GetRecorder(), std::make_shared<recording::TableData>(rows.table), true));
  EXPECT_FALSE(keeper.CurrentPlace().IsKnown()) << "after the run";
  return messages.places;
}

TEST(RunPlaces, AMessageOfAnItemNamesItsBandBillRowAndPage) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FObjectCaption", "品名"}});
  scenario.Fault({{"on", "TextBox"}, {"nth", 3}, {"number", 57}, {"description", "卡纸"}});
  scenario.Data({"FInterID", "FBillNo", "FName"}, {{1, "A", "一"}, {1, "A", "二"}, {2, "B", "三"}});
  const std::vector<RunPlace> places = PlacesOfMessages(scenario);
  ASSERT_EQ(places.size(), 1U);
  EXPECT_EQ(places[0], (RunPlace{.billType = 21,
                                 .format = "销售单",
                                 .band = 3,
                                 .item = "品名",
                                 .variable = "FName",
                                 .bill = "B",
                                 .row = 3,
                                 .page = 2}));
}

TEST(RunPlaces, AtABillsEndItsFootBelongsToIt) {
  Scenario scenario;
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "页脚"}});
  scenario.Fault({{"on", "TextBox"}, {"times", 2}, {"number", 57}, {"description", "卡纸"}});
  scenario.Data({"FInterID", "FBillNo"}, {{1, "A"}, {2, "B"}});
  const std::vector<RunPlace> places = PlacesOfMessages(scenario);
  ASSERT_EQ(places.size(), 2U);
  EXPECT_EQ(places[0].bill, "A") << "though the data stand on the next bill";
  EXPECT_EQ(places[0].page, 1);
  EXPECT_EQ(places[1].bill, "B") << "though the data stand at their end";
  EXPECT_EQ(places[1].page, 2);
}

TEST(RunPlaces, TheHeadOfABillBelongsToItsFirstRow) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FObjectCaption", "页眉"}});
  scenario.Fault({{"on", "TextBox"}, {"nth", 2}, {"number", 57}, {"description", "卡纸"}});
  scenario.Data({"FInterID", "FBillNo"}, {{1, "A"}, {2, "B"}});
  const std::vector<RunPlace> places = PlacesOfMessages(scenario);
  ASSERT_EQ(places.size(), 1U);
  EXPECT_EQ(places[0].bill, "B");
  EXPECT_EQ(places[0].band, 1);
  EXPECT_EQ(places[0].row, 0);
  EXPECT_EQ(places[0].page, 2);
}

TEST(RunPlaces, AMessageOfTheWholeDocumentNamesNoPage) {
  Scenario scenario;
  scenario.Fault({{"on", "PrintDoc"}, {"number", 57}, {"description", "没有打印机"}});
  const std::vector<RunPlace> places = PlacesOfMessages(scenario);
  ASSERT_EQ(places.size(), 1U);
  EXPECT_EQ(places[0], (RunPlace{.billType = 21, .format = "销售单"}));
}

TEST(RunPlaces, AMessageOfTheRunNamesItsFormatOrItsBillType) {
  Scenario missing;
  missing.Format({{"FSelected", 0}});
  const std::vector<RunPlace> places = PlacesOfMessages(missing);
  ASSERT_EQ(places.size(), 1U);
  EXPECT_EQ(places[0], RunPlace{.billType = 21});
}

TEST(RunPlaces, AreToldInBothLanguages) {
  const RunPlace place{.billType = 21,
                       .format = "销售单",
                       .band = 2,
                       .item = "客户",
                       .variable = "FCustName",
                       .bill = "XD-1",
                       .row = 3,
                       .page = 2};
  EXPECT_EQ(PlaceText(place, Language::kEnglish),
            "format 销售单, column head, 客户 (variable FCustName), bill XD-1, row 3, page 2");
  EXPECT_EQ(PlaceText(place, Language::kChinese),
            "格式“销售单”，列标题，客户（变量 FCustName），单据 XD-1，第 3 行，第 2 页");
  EXPECT_EQ(PlaceText({}, Language::kEnglish), "");
  EXPECT_EQ(WithPlace("类型不匹配", {}, Language::kEnglish), "类型不匹配");
  EXPECT_EQ(WithPlace("类型不匹配", {.billType = 21}, Language::kEnglish),
            "类型不匹配 (bill type 21)");
}

TEST(RunPlaces, ABandWithoutANameKeepsItsNumber) {
  EXPECT_EQ(BandName(9, Language::kEnglish), "band 9");
  EXPECT_EQ(BandName(0, Language::kEnglish), "band 0");
  EXPECT_EQ(BandName(-2, Language::kChinese), "区 -2");
  EXPECT_EQ(BandName(5, Language::kChinese), "页脚");
}

}  // namespace
}  // namespace td
