#include "checker/report.h"

#include <array>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <string_view>

#include "checker/finding_list.h"
#include "explanation/run_place.h"
#include "text/characters.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

constexpr std::size_t kColumns = 96;

struct ReportWords {
  std::array<std::string_view, 3> severities;  // by Severity
  std::string_view otherBand;
  std::string_view line;
  std::string_view picture;
  std::string_view billType;
  std::string_view settings;
  std::string_view database;
  std::string_view onPaper;
  std::string_view mend;
  std::string_view colon;
};

constexpr ReportWords kChinese = {{"提示", "警告", "错误"},
                                  "区",
                                  "线",
                                  "图片",
                                  "单据类型",
                                  "机器设置",
                                  "数据库",
                                  "纸上",
                                  "办法",
                                  "："};
constexpr ReportWords kEnglish = {{"hint", "warning", "error"},
                                  "band",
                                  "line",
                                  "picture",
                                  "bill type",
                                  "machines",
                                  "database",
                                  "on paper",
                                  "mend",
                                  ": "};

const ReportWords& WordsOf(Language language) {
  return language == Language::kChinese ? kChinese : kEnglish;
}

std::string Band(const FoundItem& item, const ReportWords& words, Language language) {
  for (int band = 1; band < kFillerBand; ++band) {
    if (item.band == std::to_string(band)) return BandName(band, language);
  }
  return std::string(words.otherBand) + " " + item.band;
}

std::string Caption(const FoundItem& item, const ReportWords& words) {
  if (!item.caption.empty()) return item.caption;
  if (item.kind == "1") return std::string(words.line);
  return item.kind == "2" ? std::string(words.picture) : "-";
}

std::string Tenths(double number) {
  const std::string text = ToText(number);
  return text.find('.') == std::string::npos ? text + ".0" : text;
}

// 销售单 / 页眉 / 客户 (FCustName, 20.0, 35.0 mm)
std::string Place(const Finding& finding, const ReportWords& words, Language language) {
  std::string place = finding.format;
  if (!finding.billType && place.empty()) return std::string(words.database);
  if (!finding.billType) return std::string(words.settings) + " / " + place;
  if (place.empty()) return std::string(words.billType) + " " + ToText(*finding.billType);
  if (!finding.item) return place;
  const FoundItem& item = *finding.item;
  place += " / " + Band(item, words, language) + " / " + Caption(item, words) + " (";
  if (!item.variable.empty()) place += item.variable + ", ";
  return place + Tenths(item.left) + ", " + Tenths(item.top) + " mm)";
}

// Chinese characters are two columns wide.
std::size_t ColumnsOf(std::string_view character) {
  return character.size() > 2 ? 2 : 1;
}

// Breaks a text into lines: at blanks, and between Chinese characters. The first line begins at
// `column`, the others at `indent`.
std::string Wrapped(std::string_view text, std::size_t column, std::size_t indent) {
  std::string lines(column, ' ');
  std::string word;
  std::size_t wordColumns = 0;
  const auto flush = [&] {
    if (column + wordColumns > kColumns && column > indent) {
      while (!lines.empty() && lines.back() == ' ') lines.pop_back();
      lines += "\n" + std::string(indent, ' ');
      column = indent;
      if (word.starts_with(' ')) {
        word.erase(0, 1);
        --wordColumns;
      }
    }
    lines += word;
    column += wordColumns;
    word.clear();
    wordColumns = 0;
  };
  const auto isClosing = [](std::string_view character) {
    return std::string_view("，。；：、？！）”").find(character) != std::string_view::npos;
  };
  while (!text.empty()) {
    const std::string_view character = TakeCharacter(text);
    const bool isWide = ColumnsOf(character) == 2;
    if (character == " " || (isWide && !isClosing(character))) flush();
    word += character;
    wordColumns += ColumnsOf(character);
    if (isWide && !isClosing(FirstCharacter(text)) && character != "“" && character != "（") {
      flush();
    }
  }
  flush();
  return lines;
}

std::string Counted(const CheckResult& result, Language language) {
  const auto count = [&](Severity severity) { return ToText(CountOf(result.findings, severity)); };
  const std::string errors = count(Severity::kError);
  const std::string warnings = count(Severity::kWarning);
  const std::string hints = count(Severity::kHint);
  const std::string formats = ToText(result.formats);
  if (language == Language::kChinese) {
    return "检查了 " + formats + " 个格式：" + errors + " 个错误，" + warnings + " 个警告，" +
           hints + " 个提示。\n";
  }
  return "formats checked: " + formats + "; errors: " + errors + ", warnings: " + warnings +
         ", hints: " + hints + "\n";
}

}  // namespace

std::string SeverityId(Severity severity) {
  return std::string(kEnglish.severities[static_cast<std::size_t>(severity)]);
}

std::string ReportText(const CheckResult& result, Language language) {
  constexpr std::size_t kIndent = 4;
  const ReportWords& words = WordsOf(language);
  std::string report;
  for (const Finding& finding : result.findings) {
    const FindingMessage& message = MessageOf(finding.kind);
    const FindingText text = TextOf(finding, language);
    const std::string severity(words.severities[static_cast<std::size_t>(message.severity)]);
    const auto addLine = [&](std::string_view label, const std::string& sentence) {
      report +=
          Wrapped(std::string(label) + std::string(words.colon) + sentence, 2, kIndent) + "\n";
    };
    report +=
        Wrapped(severity + " " + Place(finding, words, language) + ": " + text.wrong, 0, kIndent) +
        "\n";
    addLine(words.onPaper, text.effect);
    addLine(words.mend, text.mend);
    if (!finding.sql.empty()) {
      report += "  SQL" + std::string(words.colon) + finding.sql + ";\n";
    }
  }
  return report + Counted(result, language);
}

std::string ReportJson(const CheckResult& result, Language language) {
  using Json = nlohmann::ordered_json;
  Json findings = Json::array();
  for (const Finding& finding : result.findings) {
    const FindingMessage& message = MessageOf(finding.kind);
    const FindingText text = TextOf(finding, language);
    Json entry = {{"kind", message.id}, {"severity", SeverityId(message.severity)}};
    if (finding.billType) entry["type"] = *finding.billType;
    if (!finding.format.empty()) entry["format"] = finding.format;
    if (finding.item) {
      const FoundItem& item = *finding.item;
      entry["item"] = {{"band", item.band},
                       {"caption", item.caption},
                       {"variable", item.variable},
                       {"left", item.left},
                       {"top", item.top}};
    }
    entry["wrong"] = text.wrong;
    entry["effect"] = text.effect;
    entry["mend"] = text.mend;
    if (!finding.sql.empty()) entry["sql"] = finding.sql;
    entry["arguments"] = finding.arguments;
    findings.push_back(std::move(entry));
  }
  const Json report = {{"formats", result.formats},
                       {"errors", CountOf(result.findings, Severity::kError)},
                       {"warnings", CountOf(result.findings, Severity::kWarning)},
                       {"hints", CountOf(result.findings, Severity::kHint)},
                       {"findings", std::move(findings)}};
  return report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace td::checker
