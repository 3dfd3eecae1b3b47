#include "checker/report.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <sstream>

namespace td::checker {
namespace {

Finding Misspelt() {
  Finding finding{.kind = FindingKind::kVariableUnknown, .billType = 21, .format = "销售单"};
  finding.item = FoundItem{3, "1", "0", "客沪", "", 20, 35.25};
  finding.item->top = 35.3;
  finding.arguments = {"客沪", "客户", ""};
  finding.sql = "update TDBillDetail set FObjectFieldName='客户'";
  return finding;
}

CheckResult One(Finding finding) {
  return {{std::move(finding)}, 1};
}

TEST(CheckerReport, AFindingNamesFormatBandAndItem) {
  EXPECT_EQ(
      ReportText(One(Misspelt()), Language::kChinese),
      "错误 销售单 / 页眉 / 客沪 (20.0, 35.3 mm): TDVariant 中没有变量“客沪”，是否指“客户”？\n"
      "  纸上：什么也不印。\n"
      "  办法：把 FObjectFieldName 改为“客户”。\n"
      "  SQL：update TDBillDetail set FObjectFieldName='客户';\n"
      "检查了 1 个格式：1 个错误，0 个警告，0 个提示。\n");
  EXPECT_EQ(
      ReportText(One(Misspelt()), Language::kEnglish),
      "error 销售单 / head / 客沪 (20.0, 35.3 mm): TDVariant has no variable “客沪”: is “客户”\n"
      "    meant?\n"
      "  on paper: Nothing is printed.\n"
      "  mend: Write “客户” as FObjectFieldName.\n"
      "  SQL: update TDBillDetail set FObjectFieldName='客户';\n"
      "formats checked: 1; errors: 1, warnings: 0, hints: 0\n");
}

TEST(CheckerReport, TheColumnStandsBesideThePlace) {
  Finding finding = Misspelt();
  finding.item->variable = "FCustName";
  EXPECT_EQ(ReportText(One(finding), Language::kChinese)
                .find("错误 销售单 / 页眉 / 客沪 (FCustName, 20.0, 35.3 mm): "),
            0U);
}

TEST(CheckerReport, LinesAndSettingsHaveNamesToo) {
  Finding line{.kind = FindingKind::kLineLength, .billType = 21, .format = "销售单"};
  line.item = FoundItem{0, "9", "1", "", "", 1, 2};
  EXPECT_EQ(ReportText(One(line), Language::kEnglish).find("error 销售单 / band 9 / line ("), 0U);
  const Finding setting{.kind = FindingKind::kMachineSheet, .format = "销售单"};
  EXPECT_EQ(ReportText(One(setting), Language::kChinese).find("警告 机器设置 / 销售单: "), 0U);
  const Finding type{.kind = FindingKind::kNoneSelected, .billType = 21, .arguments = {"21"}};
  EXPECT_EQ(ReportText(One(type), Language::kChinese).find("警告 单据类型 21: "), 0U);
  const Finding nothing{.kind = FindingKind::kNoFormat};
  EXPECT_EQ(
      ReportText(One(nothing), Language::kEnglish).find("error database: There is no format."), 0U);
}

// Columns of a terminal: two for a Chinese character.
std::size_t ColumnsOf(const std::string& line) {
  std::size_t columns = 0;
  for (const char unit : line) {
    const auto byte = static_cast<unsigned char>(unit);
    columns += byte >= 0xE0 ? 2 : byte < 0x80 || byte >= 0xC0 ? 1 : 0;
  }
  return columns;
}

TEST(CheckerReport, NoLineButAStatementIsLong) {
  const std::vector<std::string> arguments(
      6, "一个很长的名称，它里面有很多字，还有 letters between them");
  for (const Language language : {Language::kChinese, Language::kEnglish}) {
    CheckResult result;
    for (const FindingMessage& message : FindingMessages()) {
      result.findings.push_back(
          {.kind = message.kind, .billType = 21, .format = "销售单", .arguments = arguments});
    }
    std::istringstream lines(ReportText(result, language));
    for (std::string line; std::getline(lines, line);) EXPECT_LE(ColumnsOf(line), 96U) << line;
  }
}

TEST(CheckerReport, JsonHasAllOfAFinding) {
  const nlohmann::json report =
      nlohmann::json::parse(ReportJson(One(Misspelt()), Language::kEnglish));
  EXPECT_EQ(report["formats"], 1);
  EXPECT_EQ(report["errors"], 1);
  const nlohmann::json& finding = report["findings"][0];
  EXPECT_EQ(finding["kind"], "variable-unknown");
  EXPECT_EQ(finding["severity"], "error");
  EXPECT_EQ(finding["type"], 21);
  EXPECT_EQ(finding["format"], "销售单");
  EXPECT_EQ(finding["item"]["band"], "1");
  EXPECT_EQ(finding["item"]["caption"], "客沪");
  EXPECT_EQ(finding["item"]["left"], 20.0);
  EXPECT_EQ(finding["effect"], "Nothing is printed.");
  EXPECT_EQ(finding["arguments"][1], "客户");
}

TEST(CheckerReport, TextThatIsNoUtf8IsNoReasonToFail) {
  Finding finding = Misspelt();
  finding.format = "\xff\xfe";
  const std::string report = ReportJson(One(finding), Language::kChinese);
  EXPECT_TRUE(nlohmann::json::accept(report)) << report;
}

TEST(FindingMessages, AreInTheOrderOfTheKindsWithNamesOfTheirOwn) {
  std::set<std::string_view> ids;
  for (const FindingMessage& message : FindingMessages()) {
    EXPECT_EQ(&MessageOf(message.kind), &message) << message.id;
    EXPECT_TRUE(ids.insert(message.id).second) << message.id;
    EXPECT_TRUE(std::regex_match(std::string(message.id), std::regex("[a-z]+(-[a-z0-9]+)*")));
    for (const FindingWords* words : {&message.chinese, &message.english}) {
      EXPECT_FALSE(words->wrong.empty() || words->effect.empty() || words->mend.empty())
          << message.id;
    }
  }
  EXPECT_EQ(ids.size(), static_cast<std::size_t>(FindingKind::kAreaPrinter) + 1);
}

TEST(FindingMessages, ChoicesGoByWhetherAnArgumentIsThere) {
  const std::vector<std::string> both = {"a", "b"};
  const std::vector<std::string> first = {"a"};
  EXPECT_EQ(FillIn("{0}<1?, {1}|.>!", both), "a, b!");
  EXPECT_EQ(FillIn("{0}<1?, {1}|.>!", first), "a.!");
  EXPECT_EQ(FillIn("<0?x>", {}), "");
  EXPECT_EQ(FillIn("a < b {x} 5<6?", both), "a < b {x} 5");
  EXPECT_EQ(FillIn("{7}", both), "");
}

}  // namespace
}  // namespace td::checker
