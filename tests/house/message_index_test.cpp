// The index of messages in the docs has each message that the system can show, and no other.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "source_texts.h"

namespace td {
namespace {

constexpr const char* kIndexBegin = "## Index of messages";

// Bytes that begin the Chinese characters in use.
bool IsChinese(const std::string& text) {
  return std::ranges::any_of(text, [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0xE4 && byte <= 0xE9;
  });
}

bool HasWord(const std::string& text) {
  return std::regex_search(text, std::regex("[A-Za-z]{3}"));
}

// Without what parts or frames the words, and with the same mark for whatever is filled in.
std::string Core(std::string text) {
  static const std::regex kFilledIn(R"(%\d|\{\d\})");
  text = std::regex_replace(text, kFilledIn, "…");
  static const std::vector<std::string> kMarks = {"…", "“", "”", "：", "（", "）", "。", "，", "；",
                                                  " ", ":", ",", "(",  ")",  ".",  ";",  "\n"};
  for (bool isCut = true; isCut;) {
    isCut = false;
    for (const std::string& mark : kMarks) {
      if (text.starts_with(mark)) {
        text.erase(0, mark.size());
        isCut = true;
      }
      if (text.ends_with(mark)) {
        text.erase(text.size() - mark.size());
        isCut = true;
      }
    }
  }
  return text;
}

// What leads to a message: failures, boxes, complaints, and the reasons that they are given.
bool IsOfMessage(const SourceText& text) {
  static const std::regex kShown(
      R"(Failure\(|Failure\w* \w+\(|WrongText\(|WrongConnectionText\(|GiveUp\(|Ask\(|ShowBox\()"
      R"(|Complain\(|ComplainInABox\(|CancelPrint\(|WithoutBars\(|runtime_error\(|Check\(created)"
      R"(|Require\w*\(|PutCoordinate\(|kLead|reason = |return \{k|const text = )");
  const bool isSentence = text.text.ends_with("。") || text.text.ends_with("！");
  return isSentence || std::regex_search(text.statement, kShown);
}

// Reasons that are returned as they are.
bool IsReason(const SourceText& text) {
  static const std::set<std::string> kFilesOfReasons = {"adapters/files/file_error.cpp",
                                                        "adapters/barcodes/code_symbol.cpp",
                                                        "server/module/remote_failures.cpp"};
  return kFilesOfReasons.contains(text.file) && text.statement.find("return ") != std::string::npos;
}

// What tdprint says in English on standard error and in Chinese in a box.
bool IsOfDictionary(const SourceText& text) {
  return text.file == "tools/tdprint/complaint.cpp" &&
         text.statement.find("Words") != std::string::npos;
}

// Tables of words that have a page of their own.
bool HasItsOwnPage(const SourceText& text) {
  return text.file.starts_with("adapters/explanation/");
}

bool IsEnglishMessage(const SourceText& text) {
  static const std::regex kShown(R"(Complain\(|ComplainInABox\(|Failure\(|Try\(|return Run\()");
  return text.file.starts_with("tools/tdprint/") && HasWord(text.text) &&
         std::regex_search(text.statement, kShown);
}

bool IsMessage(const SourceText& text) {
  if (HasItsOwnPage(text)) return false;
  if (IsEnglishMessage(text)) return true;
  return IsChinese(text.text) && (IsOfMessage(text) || IsReason(text) || IsOfDictionary(text));
}

std::vector<SourceText> AllTexts() {
  std::vector<SourceText> all;
  for (const char* folder : {"adapters", "server", "src", "tools"}) {
    for (SourceText& text : TextsOf(QBTD_SOURCE_DIR, folder)) all.push_back(std::move(text));
  }
  return all;
}

// The first cells of the tables in the index.
std::vector<std::string> Entries() {
  std::ifstream page(QBTD_SOURCE_DIR "/docs/troubleshooting.md");
  std::vector<std::string> entries;
  bool isInIndex = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) isInIndex = line == kIndexBegin;
    if (!isInIndex || !line.starts_with("| ") || line.starts_with("| Message")) continue;
    entries.push_back(line.substr(2, line.find(" | ", 2) - 2));
  }
  return entries;
}

// What stands between the places that are filled in, of each message of an entry.
std::vector<std::string> PartsOf(const std::string& entry) {
  static const std::regex kBetween("…| / |: |; |, |：");
  std::vector<std::string> parts;
  for (std::sregex_token_iterator part(entry.begin(), entry.end(), kBetween, -1), end; part != end;
       ++part) {
    parts.push_back(Core(*part));
  }
  return parts;
}

TEST(MessageIndex, HasEachMessageOfTheSources) {
  const std::vector<std::string> entries = Entries();
  ASSERT_GT(entries.size(), 50U);
  std::set<std::string> told;
  for (const SourceText& text : AllTexts()) {
    const std::string core = Core(text.text);
    if (!IsMessage(text) || core.empty() || !told.insert(core).second) continue;
    EXPECT_TRUE(std::ranges::any_of(
        entries, [&](const std::string& entry) { return entry.find(core) != std::string::npos; }))
        << "“" << core << "” of " << text.file << " has no entry in docs/troubleshooting.md";
  }
  EXPECT_GT(told.size(), 100U) << "the sources are read";
}

TEST(MessageIndex, HasNoMessageThatNobodyShows) {
  std::vector<SourceText> texts = AllTexts();
  for (const std::string& entry : Entries()) {
    for (const std::string& part : PartsOf(entry)) {
      EXPECT_TRUE(std::ranges::any_of(
          texts, [&](const SourceText& text) { return text.text.find(part) != std::string::npos; }))
          << "“" << part << "” of the entry “" << entry << "” stands in no source";
    }
  }
}

}  // namespace
}  // namespace td
