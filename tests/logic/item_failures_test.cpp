// What a failing step of an item leaves behind: skipped steps, repeated steps, ended bands.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// Skipped steps ---------------------------------------------------------------------------------

TEST(SkippedSteps, ANullFontAttributeKeepsThatOfTheItemBefore) {
  for (const int site : {1, 3}) {
    Scenario scenario;
    scenario.Item({{"FSite", site}, {"FFontName", "黑体"}, {"FFontSize", 12}, {"FFontBold", 1}});
    scenario.Item({{"FSite", site},
                   {"FFontName", nullptr},
                   {"FFontSize", nullptr},
                   {"FFontBold", nullptr},
                   {"FFontItalic", nullptr}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Puts("FontName"), Json::array({"黑体"}));
    EXPECT_EQ(trace.Puts("FontSize"), Json::array({12}));
    EXPECT_EQ(trace.Puts("FontBold"), Json::array({true}));
    EXPECT_EQ(trace.Puts("FontItalic"), Json::array({false}));
    EXPECT_EQ(trace.Texts().size(), 2U) << "drawn all the same";
  }
}

TEST(SkippedSteps, OneNullFontAttributeLeavesTheOthersToTheItem) {
  Scenario scenario;
  scenario.Item({{"FFontName", "黑体"}, {"FFontSize", 12}});
  scenario.Item({{"FFontName", nullptr}, {"FFontSize", 9}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Puts("FontName"), Json::array({"黑体"}));
  EXPECT_EQ(trace.Puts("FontSize"), (Json{12, 9}));
}

TEST(SkippedSteps, AFormatWithoutAColumnKeepsWhatTheSurfaceHas) {
  for (const auto& [column, property] :
       std::vector<std::pair<const char*, const char*>>{{"FFontName", "FontName"},
                                                        {"FFontSize", "FontSize"},
                                                        {"FFontBold", "FontBold"},
                                                        {"FFontItalic", "FontItalic"},
                                                        {"FAlignMent", "TextAlign"}}) {
    Scenario scenario;
    scenario.Item({}).DropColumn("TDBillDetail", column);
    const Trace trace = scenario.Run();
    EXPECT_TRUE(trace.Puts(property).empty()) << property;
    EXPECT_EQ(trace.Texts(), (Texts{"文本"}));
    EXPECT_TRUE(trace.Messages().empty());
  }
}

TEST(SkippedSteps, ABoxFailsAsAWholeWithAnyOfItsValues) {
  for (const char* column : {"FWidth", "FHeight"}) {
    for (const int site : {1, 3}) {
      Scenario scenario;
      scenario.Item({{"FSite", site}, {column, nullptr}});
      scenario.Item({{"FSite", site}, {"FObjectCaption", "后"}});
      EXPECT_EQ(scenario.Run().Texts(), (Texts{"后"})) << column << " in band " << site;
    }
  }
  for (const char* column : {"FWidth", "FHeight", "FWordWrap"}) {
    Scenario scenario;
    scenario.Item({}).DropColumn("TDBillDetail", column);
    const Trace trace = scenario.Run();
    EXPECT_TRUE(trace.Texts().empty()) << column;
    EXPECT_EQ(trace.Puts("TextAlign").size(), 1U) << "the steps before it were done";
  }
}

TEST(SkippedSteps, WithoutACaptionColumnTheRepetitionHoldsAndTheTextIsEmpty) {
  Scenario scenario;
  scenario.Item({}).FieldItem("FName").DropColumn("TDBillDetail", "FObjectCaption");
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"", "甲"}));
}

TEST(SkippedSteps, AmountsInWordsOfAMissingOrNullColumnPrintNeitherValueNorCaption) {
  for (const char* column : {"FSumAmount", "FOther"}) {
    Scenario scenario;
    scenario.FieldItem("fsumamount_dx", {{"FObjectCaption", "大写："}});
    scenario.Item({{"FObjectCaption", "后"}});
    scenario.Data({"FInterID", column}, {{1, nullptr}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Texts(), (Texts{"后"})) << column;
    EXPECT_TRUE(trace.Messages().empty());
  }
}

TEST(SkippedSteps, ANullPictureSkipsASumField) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FFormatString", nullptr}});
  scenario.FieldItem("ftotalpagedx", {{"FFormatString", nullptr}});
  scenario.FieldItem("ftotalpage_qty", {{"FFormatString", "0.0"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"0.0"}));
}

TEST(SkippedSteps, WithoutAPictureColumnSumsPrintPlainAndNumbersNotAtAll) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FObjectCaption", "计"}}).FieldItem("FQty").FieldItem("FName");
  scenario.Data({"FInterID", "FName", "FQty"}, {{1, "甲", 5}});
  scenario.DropColumn("TDBillDetail", "FFormatString");
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"计0", "甲"})) << "a failed test counts as true";
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(SkippedSteps, WithoutABorderColumnThePenStays) {
  Scenario scenario;
  scenario.Line({}).DropColumn("TDBillDetail", "Fborderwidth");
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Puts("PenWidth").empty());
  EXPECT_EQ(trace.Calls("DrawLine").size(), 1U);
}

TEST(SkippedSteps, ALineWithoutAWidthColumnIsTakenAsHorizontalAndNotDrawn) {
  Scenario scenario;
  scenario.Line({{"FWidth", 0}, {"FHeight", 50}}).DropColumn("TDBillDetail", "FWidth");
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Calls("DrawLine").empty());
  EXPECT_EQ(trace.Puts("PenWidth"), Json::array({14}));
}

TEST(SkippedSteps, ANullPositionInTheHeadSkipsWhatNeedsIt) {
  Scenario scenario;
  scenario.Item({{"FSite", 1}, {"FLeft", nullptr}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Puts("CurrentX").empty());
  EXPECT_EQ(trace.Puts("CurrentY"), Json::array({1000}));
  EXPECT_TRUE(trace.Texts().empty());
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(SkippedSteps, AForgivenFailureOfTheSurfaceSkipsThatStepAlone) {
  for (const int number : {94, 3265}) {
    Scenario scenario;
    scenario.Fault({{"on", "put:FontName"}, {"number", number}});
    scenario.Item({});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Puts("FontSize").size(), 1U);
    EXPECT_EQ(trace.Texts(), (Texts{"文本"}));
    EXPECT_TRUE(trace.Messages().empty());
  }
}

TEST(SkippedSteps, AMissingMainQuantityPrintsTheCaptionAndTheOldText) {
  Scenario scenario;
  scenario.FieldItem("fcomplexqty", {{"FObjectCaption", "数量："}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"数量："}));
}

// Repeated steps --------------------------------------------------------------------------------

TEST(RepeatedSteps, ALockIsWaitedForAtAnyStep) {
  for (const char* step : {"put:CurrentX", "put:FontBold", "put:TextAlign", "TextBox"}) {
    for (const int site : {1, 3}) {
      Scenario scenario;
      scenario.Fault({{"on", step}, {"times", 50}, {"number", 5}, {"description", "行被锁定"}});
      scenario.Item({{"FSite", site}});
      const Trace trace = scenario.Run();
      const std::string name = step;
      const bool isPut = name.starts_with("put:");
      EXPECT_EQ((isPut ? trace.Puts(name.substr(4)) : trace.Calls(name)).size(), 51U) << name;
      EXPECT_EQ(trace.Puts("FontName").size(), 1U) << "the steps before it are not repeated";
      EXPECT_TRUE(trace.Messages().empty());
    }
  }
}

TEST(RepeatedSteps, ALockedQueryIsAskedAgain) {
  for (const int site : {1, 3}) {
    Scenario scenario;
    const std::string band = "FSite=" + std::to_string(site);
    scenario.Fault(
        {{"on", "query"}, {"times", 3}, {"number", 5}, {"description", "锁"}, {"match", band}});
    scenario.Item({{"FSite", site}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Texts(), (Texts{"文本"}));
    EXPECT_TRUE(trace.Messages().empty());
  }
}

TEST(RepeatedSteps, ALockedPictureIsLoadedAndDrawnAgain) {
  Scenario scenario;
  scenario.Set("pictures", Json::array({"logo.png"}));
  scenario.Fault({{"on", "DrawPicture"}, {"number", 5}, {"description", "锁"}});
  scenario.Item({{"FTypeID", 2}, {"FPicturePath", "logo.png"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Lines("file").size(), 2U) << "loading and drawing are one step";
  EXPECT_EQ(trace.Calls("DrawPicture").size(), 2U);
}

// Ended bands -----------------------------------------------------------------------------------

TEST(EndedBands, AnyOtherFailureShowsItsDescriptionAndLeavesTheRest) {
  for (const char* step : {"put:FontName", "put:CurrentY", "TextBox"}) {
    for (const int site : {1, 3}) {
      Scenario scenario;
      scenario.Fault({{"on", step}, {"nth", 2}, {"number", 7}, {"description", "内存不足"}});
      for (const char* caption : {"一", "二", "三"}) {
        scenario.Item({{"FSite", site}, {"FObjectCaption", caption}});
      }
      scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}});
      const Trace trace = scenario.Run();
      EXPECT_EQ(trace.Messages(), (Texts{"内存不足"})) << step;
      EXPECT_EQ(trace.Lines("box")[0].at("style"), 64);
      EXPECT_EQ(trace.Texts().front(), "一");
      EXPECT_EQ(trace.Texts().back(), "脚") << "the run goes on";
      for (const std::string& text : trace.Texts()) EXPECT_NE(text, "三");
    }
  }
}

TEST(EndedBands, AFailingQueryDrawsNothingOfItsBand) {
  for (const int site : {1, 3}) {
    Scenario scenario;
    const std::string band = "FSite=" + std::to_string(site);
    scenario.Fault({{"on", "query"}, {"number", 99}, {"description", "断开"}, {"match", band}});
    scenario.Item({{"FSite", site}}).Item({{"FSite", 5}, {"FObjectCaption", "脚"}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Messages(), (Texts{"断开"}));
    EXPECT_EQ(trace.Texts(), (Texts{"脚"}));
    EXPECT_EQ(trace.After().at("PrintOk"), true);
  }
}

TEST(EndedBands, AQueryWhoseOpeningWasSkippedCannotBeUsed) {
  for (const int number : {94, 3265}) {
    Scenario scenario;
    scenario.Fault({{"on", "query"}, {"number", number}, {"match", "FSite=3"}});
    scenario.Item({});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Messages().size(), 1U);
    EXPECT_TRUE(trace.Texts().empty());
  }
}

TEST(EndedBands, TheNextRowIsDrawnAnew) {
  Scenario scenario;
  scenario.Fault({{"on", "TextBox"}, {"number", 7}, {"description", "坏了"}});
  scenario.FieldItem("FName").Item({}).Bills({2});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"行1", "行2", "文本"}));
  EXPECT_EQ(trace.Messages().size(), 1U);
}

TEST(EndedBands, TextWhereANumberIsNeededEndsTheBand) {
  for (const char* column : {"FWidth", "FFontSize", "FFontBold"}) {
    Scenario scenario;
    scenario.Item({{column, "甲"}}).Item({{"FObjectCaption", "后"}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Messages(), (Texts{"类型不匹配"})) << column;
    EXPECT_TRUE(trace.Texts().empty());
  }
}

TEST(EndedBands, AQuantityBehindTheLastRowEndsTheBand) {
  Scenario scenario;
  scenario.FieldItem("fcomplexqty", {{"FSite", 5}}).Item({{"FSite", 5}});
  scenario.Data({"FInterID", "FMainQty"}, {{1, 2}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Messages().size(), 1U);
  EXPECT_TRUE(trace.Texts().empty());
}

}  // namespace
}  // namespace td
