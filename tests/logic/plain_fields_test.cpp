// Items that show a column of the print data: which row they show, and how.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// What one column prints in the row band.
Texts TextsOf(const std::string& column, const Json& value, const Json& picture) {
  Scenario scenario;
  scenario.FieldItem(column, {{"FFormatString", picture}});
  scenario.Data({"FInterID", column}, {{1, value}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty()) << trace.Text();
  return trace.Texts();
}

std::string TextOf(const std::string& column, const Json& value, const Json& picture) {
  const Texts texts = TextsOf(column, value, picture);
  EXPECT_EQ(texts.size(), 1U);
  return texts.empty() ? "" : texts.front();
}

TEST(PlainFields, ANumberPrintsUnderItsPicture) {
  EXPECT_EQ(TextOf("FQty", 12, "0.00"), "12.00");
  EXPECT_EQ(TextOf("FQty", 1234.5, "#,##0.00"), "1,234.50");
  EXPECT_EQ(TextOf("FQty", 0, "0"), "0");
}

TEST(PlainFields, ATextThatReadsAsANumberPrintsUnderItsPicture) {
  EXPECT_EQ(TextOf("FQty", "12.5", "0.00"), "12.50");
  EXPECT_EQ(TextOf("FQty", " 1,234 ", "0.0"), "1234.0");
}

TEST(PlainFields, OtherTextsIgnoreThePicture) {
  EXPECT_EQ(TextOf("FQty", "12.5元", "0.00"), "12.5元");
  EXPECT_EQ(TextOf("FQty", "甲", "0.00"), "甲");
  EXPECT_EQ(TextOf("FQty", "", "0.00"), "");
}

TEST(PlainFields, WithoutAPictureANumberPrintsInItsGeneralForm) {
  EXPECT_EQ(TextOf("FQty", 12.50, ""), "12.5");
  EXPECT_EQ(TextOf("FQty", -1234567.25, ""), "-1234567.25");
  EXPECT_EQ(TextOf("FQty", 0.1 + 0.2, ""), "0.3");
  EXPECT_EQ(TextOf("FQty", 1.5e20, ""), "1.5E+20");
}

TEST(PlainFields, ANullPictureIsNoPicture) {
  EXPECT_EQ(TextOf("FQty", 12.50, nullptr), "12.5");
}

TEST(PlainFields, ALeadingPointGetsAZeroInFront) {
  EXPECT_EQ(TextOf("FQty", ".5", ""), "0.5");
  EXPECT_EQ(TextOf("FQty", ".甲", "0.00"), "0.甲");
  EXPECT_EQ(TextOf("FQty", "-.5", ""), "-.5") << "only the first character counts";
  EXPECT_EQ(TextOf("FQty", " .5", ""), " .5");
}

TEST(PlainFields, ANullValuePrintsTheCaptionAlone) {
  for (const char* picture : {"", "0.00"}) {
    Scenario scenario;
    scenario.FieldItem("FQty", {{"FObjectCaption", "数量："}, {"FFormatString", picture}});
    scenario.Data({"FInterID", "FQty"}, {{1, nullptr}});
    EXPECT_EQ(scenario.Run().Texts(), (Texts{"数量："}));
  }
}

TEST(PlainFields, ACaptionStandsInFrontOfAFormattedNumberAndOfALeadingZero) {
  Scenario scenario;
  scenario.FieldItem("FQty", {{"FObjectCaption", "数量："}, {"FFormatString", "0.0"}});
  scenario.FieldItem("FRate", {{"FObjectCaption", "率"}});
  scenario.Data({"FInterID", "FQty", "FRate"}, {{1, 5, ".25"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"数量：5.0", "率0.25"}));
}

// Band 4 of a full page of two rows: the cursor on the second row, the clone on the first.
Texts BandFourOf(const Json& first, const Json& second, const Json& picture) {
  Scenario scenario;
  scenario.FieldItem("FMark", {{"FSite", 4}, {"FFormatString", picture}});
  scenario.Format({{"FRowsPerPage", 2}});
  scenario.Data({"FInterID", "FMark"}, {{1, first}, {1, second}});
  return scenario.Run().Texts();
}

TEST(PlainFields, OutsideTheRowsANumberWithAPictureFollowsTheCursor) {
  EXPECT_EQ(BandFourOf(1, 2, "0.00"), (Texts{"2.00"}));
}

TEST(PlainFields, OutsideTheRowsAFieldWithoutAPictureFollowsTheParkedClone) {
  EXPECT_EQ(BandFourOf(1, 2, ""), (Texts{"1"}));
  EXPECT_EQ(BandFourOf(1, 2, nullptr), (Texts{"1"}));
  EXPECT_EQ(BandFourOf("甲", "乙", ""), (Texts{"甲"}));
}

TEST(PlainFields, WhetherAValueIsANumberIsAskedOfTheCursorsRow) {
  EXPECT_EQ(BandFourOf("甲", 5, "0.0"), (Texts{"5.0"}));
  EXPECT_EQ(BandFourOf(5, "乙", "0.0"), (Texts{"5"})) << "the clone's value, not formatted";
  EXPECT_EQ(BandFourOf(5, nullptr, "0.0"), (Texts{"5"}));
  EXPECT_EQ(BandFourOf(nullptr, "乙", ""), (Texts{""}));
}

TEST(PlainFields, InTheRowsEverythingFollowsTheCursor) {
  Scenario scenario;
  scenario.FieldItem("FName").FieldItem("FQty", {{"FFormatString", "0.0"}});
  scenario.Data({"FInterID", "FName", "FQty"}, {{1, "甲", 1}, {1, "乙", 2}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"甲", "1.0", "乙", "2.0"}));
}

TEST(PlainFields, BehindTheLastRowEverythingComesFromTheClone) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 5}});
  scenario.FieldItem("FQty", {{"FSite", 5}, {"FFormatString", "0.0"}});
  scenario.FieldItem("FRate", {{"FSite", 5}, {"FFormatString", nullptr}});
  scenario.Data({"FInterID", "FName", "FQty", "FRate"}, {{1, "甲", 1, ".5"}, {1, "乙", 2, ".7"}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"甲", "1.0", "0.5"}));
}

TEST(PlainFields, WithoutAClonedCursorTheOneCursorServesAsBoth) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 4}}).Format({{"FRowsPerPage", 2}});
  scenario.Bills({2}).NoClone();
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"行2"}));
}

TEST(PlainFields, AColumnThatTheDataLackPrintsNothing) {
  for (const Json& picture : {Json(""), Json("0.00"), Json(nullptr)}) {
    for (const int site : {2, 3, 5}) {
      Scenario scenario;
      scenario.FieldItem("FNowhere", {{"FSite", site}, {"FFormatString", picture}});
      scenario.Item({{"FSite", site}, {"FObjectCaption", "后"}});
      const Trace trace = scenario.Run();
      EXPECT_EQ(trace.Texts(), (Texts{"后"})) << "band " << site;
      EXPECT_TRUE(trace.Messages().empty());
    }
  }
}

TEST(PlainFields, InTheFootOfDataWithoutRowsEndTheBandWithAMessage) {
  Scenario scenario;
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "前"}});
  scenario.FieldItem("FName", {{"FSite", 5}});
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "后"}});
  scenario.Data({"FInterID", "FName"}, {});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"前"}));
  EXPECT_EQ(trace.Messages().size(), 1U);
}

}  // namespace
}  // namespace td
