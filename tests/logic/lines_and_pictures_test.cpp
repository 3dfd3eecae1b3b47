// Lines, pictures from files and barcodes, where they differ from texts.
#include <gtest/gtest.h>

#include "items/draw_items.h"
#include "scenario.h"
#include "window_of_scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

TEST(Lines, HaveAPenOfNineTwipsAUnitAndFourteenForThinOnes) {
  for (const int site : {1, 3}) {
    Scenario scenario;
    for (const Json& width : {Json(0), Json(1), Json(nullptr), Json(1.5), Json(2), Json(3)}) {
      scenario.Line({{"FSite", site}, {"Fborderwidth", width}});
    }
    EXPECT_EQ(scenario.Run().Puts("PenWidth"), (Json{14, 14, 14, 13.5, 18, 27})) << site;
  }
}

TEST(Lines, AreHorizontalWhenWiderThanHighAndVerticalOtherwise) {
  for (const int site : {1, 3}) {
    Scenario scenario;
    scenario.Line({{"FSite", site}, {"FWidth", 500}, {"FHeight", 499}});
    scenario.Line({{"FSite", site}, {"FWidth", 0}, {"FHeight", 300}});
    scenario.Line({{"FSite", site}, {"FWidth", 300}, {"FHeight", 300}});
    EXPECT_EQ(scenario.Run().Calls("DrawLine"),
              (Json{{100, 1000, 600, 1000}, {100, 1000, 100, 1300}, {100, 1000, 100, 1300}}))
        << site;
  }
}

TEST(Lines, FollowAllOffsetsInABand) {
  Scenario scenario;
  scenario.Line({{"FTop", 10}}).Line({{"FTop", 20}, {"FWidth", 0}, {"FHeight", 30}});
  WindowOfScenario window(scenario);
  window.State().AdjuctLeft = 5;
  window.State().AdjuctTop = 100;
  window.State().CurrentRowTop = 1000;
  window.State().BandShift = -50;
  DrawItems(window.Window(), ItemSite::kRow);
  EXPECT_EQ(window.Lines().Calls("DrawLine"),
            (Json{{105, 1060, 605, 1060}, {105, 1070, 105, 1100}}));
}

// The last digit tells in which order the terms were added.
TEST(Lines, OfTheHeadAddTheOffsetLastAndOthersTheSizeToThePlace) {
  const auto ends = [](int site) {
    Scenario scenario;
    scenario.Format({{"FAdjuctLeft", -386.2}, {"FAdjuctTop", -386.2}});
    scenario.Line({{"FSite", site}, {"FLeft", 4514.4}, {"FTop", 10}, {"FWidth", 3804.8}});
    scenario.Line(
        {{"FSite", site}, {"FLeft", 500}, {"FTop", 4514.4}, {"FWidth", 0}, {"FHeight", 3804.8}});
    const Json lines = scenario.Run().Calls("DrawLine");
    return Json{lines.at(0).at(2), lines.at(1).at(3)};
  };
  EXPECT_EQ(ends(1), (Json{7932.9999877929695, 7932.9999877929695}));
  EXPECT_EQ(ends(2), (Json{7932.999987792969, 7932.999987792969}));
}

TEST(Lines, LeaveFontAlignmentAndCurrentPoint) {
  Scenario scenario;
  scenario.Line({});
  WindowOfScenario window(scenario);
  DrawItems(window.Window(), ItemSite::kRow);
  const Trace trace = window.Lines();
  EXPECT_EQ(trace.Lines("put").size(), 1U) << trace.Text();
  EXPECT_EQ(trace.Puts("PenWidth").size(), 1U);
}

TEST(Lines, WithoutAWidthAreVertical) {
  Scenario scenario;
  scenario.Line({{"FWidth", nullptr}, {"FHeight", 40}});
  EXPECT_EQ(scenario.Run().Calls("DrawLine"), (Json::array({{100, 1000, 100, 1040}})));
}

TEST(Lines, WithoutAHeightAreNotDrawn) {
  Scenario scenario;
  scenario.Line({{"FHeight", nullptr}, {"Fborderwidth", 2}}).Item({});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Calls("DrawLine").empty());
  EXPECT_EQ(trace.Puts("PenWidth"), Json::array({18})) << "the pen is set all the same";
  EXPECT_EQ(trace.Texts(), (Texts{"文本"}));
}

Scenario PictureScenario(const Json& path) {
  Scenario scenario;
  scenario.Set("pictures", Json::array({"logo.png"}));
  scenario.Item({{"FTypeID", 2}, {"FPicturePath", path}});
  scenario.Item({{"FObjectCaption", "后"}});
  return scenario;
}

TEST(Pictures, AreDrawnInTheirNaturalSizeAtTheRowsPlace) {
  Scenario scenario = PictureScenario("logo.png");
  scenario.Format({{"FAdjuctLeft", 7}, {"FAdjuctTop", 40}}).Bills({2});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Calls("DrawPicture"),
            (Json{{"file:logo.png", 107, 1040}, {"file:logo.png", 107, 1340}}));
  EXPECT_EQ(trace.Lines("file").size(), 2U) << "loaded for each row";
}

TEST(Pictures, WithoutAPathAreSkipped) {
  const Trace trace = PictureScenario(nullptr).Run();
  EXPECT_TRUE(trace.Calls("DrawPicture").empty());
  EXPECT_EQ(trace.Texts(), (Texts{"后"}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(Pictures, ThatCannotBeLoadedEndTheBandAndTheRunGoesOn) {
  for (const char* path : {"missing.png", ""}) {
    Scenario scenario = PictureScenario(path);
    scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Messages().size(), 1U);
    EXPECT_EQ(trace.Texts(), (Texts{"脚"}));
    EXPECT_EQ(trace.After().at("PrintOk"), true);
  }
}

TEST(Barcodes, TakeTheirDataFromTheRunningRowInEveryBand) {
  Scenario scenario;
  scenario.Item({{"FSite", 4}, {"FObjectFieldName", "<随机条码图>"}});
  scenario.Format({{"FRowsPerPage", 2}});
  scenario.Data({"FInterID", "FBillNoBarCode"}, {{1, "一"}, {1, 22}});
  const Trace trace = scenario.Run();
  ASSERT_EQ(trace.PicturesDrawn().size(), 1U);
  EXPECT_EQ(trace.PicturesDrawn()[0].text, "barcode:22");
}

}  // namespace
}  // namespace td
