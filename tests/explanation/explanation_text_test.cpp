// An explanation as lines and as JSON.
#include "explanation/explanation_text.h"

#include <gtest/gtest.h>

#include "explained_scenario.h"
#include "explanation/words.h"
#include "recording/json_values.h"

namespace td {
namespace {

std::string English(const Scenario& scenario) {
  return ExplanationText(Explained(scenario), Language::kEnglish);
}

TEST(ExplanationText, TellsAMissingColumnInASentence) {
  Scenario scenario;
  scenario.FieldItem("FCustName", {{"FSite", 2}, {"FObjectCaption", "客户"}, {"FLeft", 567}});
  EXPECT_EQ(English(scenario),
            "format 销售单 (bill type 21): pages 1, rows 1, bills 1\n"
            "column head, 客户 (variable FCustName) at 10.0, 17.6 mm: not drawn 1 of 1 times: the "
            "data have no column FCustName (first: bill 1, page 1)\n"
            "items drawn as the format says: 0 of 1\n"
            "bill 1: rows 1, marker rows 1, rows passed over 0\n");
}

TEST(ExplanationText, SpeaksChinese) {
  Scenario scenario;
  scenario.FieldItem("FCustName", {{"FSite", 2}, {"FObjectCaption", "客户"}});
  scenario.Data({"FInterID", "FMainQty"}, {{1, 1}});
  EXPECT_EQ(
      ExplanationText(Explained(scenario), Language::kChinese),
      "格式“销售单”（单据类型 21）：1 页，1 行，1 张单据\n"
      "列标题，客户（变量 FCustName，左 1.8、上 17.6 毫米）：1 次中有 1 次未印出：打印数据中没有 "
      "FCustName 列（首次：单据 1，第 1 页）\n"
      "按格式印出的项：1 项中的 0 项\n");
}

TEST(ExplanationText, TellsWhatHoldsForManyItemsOnce) {
  Scenario scenario;
  for (int i = 0; i < 5; ++i) scenario.Line({});
  scenario.Print({{"New_OnlyPrintVariantItem", true}});
  scenario.Data({"FInterID", "FMainQty"}, {{1, 1}});
  EXPECT_EQ(English(scenario),
            "format 销售单 (bill type 21): pages 1, rows 1, bills 1\n"
            "items left out because only variable items were asked for: 5\n"
            "items drawn as the format says: 0 of 5\n");
}

TEST(ExplanationText, TellsSumsAndFailures) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 5}}).FieldItem("FName");
  scenario.Fault({{"on", "TextBox"}, {"number", 57}, {"description", "卡纸\n了"}});
  scenario.Data({"FInterID", "FMainQty", "FAmount", "FName"},
                {{1, 1, 10, "甲"}, {1, 1, nullptr, "乙"}});
  const std::string text = English(scenario);
  EXPECT_NE(text.find("\nsum ftotalpage: 10 from 1 rows (FAmount); 1 rows without a number\n"),
            std::string::npos)
      << text;
  EXPECT_NE(
      text.find("\nmessage: 卡纸 了 (format 销售单, detail row, FName, bill 1, row 1, page 1)\n"),
      std::string::npos)
      << text;
}

TEST(ExplanationText, AMisspeltNameWithoutALabelDrawsNothing) {
  ExplainedItem item;
  item.name = "<单号条形码>";
  Reason reason;
  reason.cause = Cause::kUnknownImage;
  EXPECT_NE(ReasonText(item, reason, Language::kEnglish).find("nothing is drawn"),
            std::string::npos);
  reason.cause = Cause::kUnknownVariable;
  EXPECT_NE(ReasonText(item, reason, Language::kEnglish).find("nothing is drawn"),
            std::string::npos);
  item.caption = "条码";
  EXPECT_NE(ReasonText(item, reason, Language::kEnglish).find("only the label is drawn"),
            std::string::npos);
}

TEST(ExplanationText, ASumOfThePageIsTold) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 1}}).FieldItem("ftotalpage", {{"FSite", 4}});
  scenario.Data({"FInterID", "FMainQty", "FAmount"}, {{1, 1, 401.2}, {1, 1, 99.9}});
  const std::string text = English(scenario);
  EXPECT_NE(text.find("\nsum ftotalpage: of each page; all pages 501.1 from 2 rows (FAmount)\n"),
            std::string::npos)
      << text;
}

TEST(ExplanationText, RowsOutsideTheSumsAreToldWhereThereAreSums) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 5}});
  scenario.Data({"FInterID", "FAmount"}, {{1, 10}});
  EXPECT_NE(English(scenario).find("the data have no column FMainQty"), std::string::npos);
}

TEST(ExplanationText, TellsThatNothingWasPrinted) {
  EXPECT_EQ(ExplanationText({}, Language::kEnglish), "nothing was printed: no run took place\n");
  Scenario scenario;
  scenario.Format({{"FSelected", 0}});
  EXPECT_EQ(English(scenario), "bill type 21: no format was found, nothing was printed\n");
}

TEST(ExplanationText, EachCauseHasWordsInBothLanguages) {
  for (int i = 0; i <= static_cast<int>(Cause::kBandStopped); ++i) {
    const auto cause = static_cast<Cause>(i);
    const CauseWords& words = WordsOf(cause);
    EXPECT_EQ(words.cause, cause);
    EXPECT_FALSE(words.name.empty() || words.sentence.english.empty() ||
                 words.sentence.chinese.empty());
  }
}

TEST(ExplanationJson, HasAllOfIt) {
  Scenario scenario;
  scenario.FieldItem("FGone", {{"FObjectCaption", "引号\"和\\\n"}});
  scenario.FieldItem("ftotalpage", {{"FSite", 5}});
  scenario.Data({"FInterID", "FMainQty", "FAmount"}, {{1, 1, 0.5}, {1, -999.99, 1}});
  const auto json = recording::Json::parse(ExplanationJson(Explained(scenario)));
  EXPECT_EQ(json["format"], "销售单");
  EXPECT_EQ(json["rows"], 2);
  EXPECT_EQ(json["items"][0]["caption"], "引号\"和\\\n");
  EXPECT_EQ(json["items"][0]["leftOut"][0]["cause"], "missingColumn");
  EXPECT_EQ(json["items"][0]["leftOut"][0]["column"], "FGone");
  EXPECT_EQ(json["items"][0]["leftOut"][0]["first"]["row"], 1);
  EXPECT_EQ(json["markerRows"][0]["cause"], "markerValue");
  EXPECT_EQ(json["sums"][0]["amount"], 0.5);
  EXPECT_EQ(json["bills"][0]["markerRows"], 1);
  EXPECT_EQ(json["pagesWithoutRows"], recording::Json::array());
}

TEST(ExplanationJson, RepairsTextThatIsNotUtf8) {
  Explanation explanation;
  explanation.format = "\xff";
  EXPECT_EQ(recording::Json::parse(ExplanationJson(explanation))["format"], "\uFFFD");
}

}  // namespace
}  // namespace td
