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

// A section of a page whose tables begin with what the system says.
struct Section {
  const char* page;
  const char* heading;
  const char* next;  // what the heading of the section behind it begins with
  const char* head;  // of the tables
};

constexpr Section kIndex = {"/docs/troubleshooting.md", "## Index of messages", "## ", "| Message"};
constexpr Section kExplanations[] = {
    {"/docs/troubleshooting.md", "## Why is this box empty?", "##", "| It says"},
    {"/docs/troubleshooting.zh-CN.md", "## 这个框为什么是空的", "##", "| 它说"},
};

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
      R"(|Require\w*\(|WrongFile\(|Fail\(|PutCoordinate\(|kLead|reason = |return \{\w+, |const text = )");
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

bool IsOfDesignerWords(const SourceText& text) {
  return text.file.starts_with("designer/view/") && text.file.ends_with("_words.cpp");
}

// Tables of words that have a page of their own; what of the designer's is a message stands where
// it is said.
bool HasItsOwnPage(const SourceText& text) {
  return text.file.starts_with("adapters/explanation/") || IsOfDesignerWords(text) ||
         (text.file.starts_with("checker/") && text.file.ends_with("_messages.cpp"));
}

// What the designer tells and asks in a box. Its answers are no messages, nor is the help, which
// has paragraphs.
bool IsSaidInABox(const SourceText& text) {
  static const std::regex kShown(R"(\bTell\(|\bAsk\()");
  const bool isSentence = text.text.find_first_of(".?:") != std::string::npos &&
                          text.text.find("\n\n") == std::string::npos;
  return text.file.starts_with("designer/window/") && isSentence && HasWord(text.text) &&
         std::regex_search(text.statement, kShown);
}

bool IsEnglishMessage(const SourceText& text) {
  static const std::regex kShown(R"(Complain\(|ComplainInABox\(|Failure\(|Try\(|return Run\()");
  return text.file.starts_with("tools/tdprint/") && HasWord(text.text) &&
         std::regex_search(text.statement, kShown);
}

bool IsMessage(const SourceText& text) {
  if (HasItsOwnPage(text)) return false;
  if (IsEnglishMessage(text) || IsSaidInABox(text)) return true;
  return IsChinese(text.text) && (IsOfMessage(text) || IsReason(text) || IsOfDictionary(text));
}

std::vector<SourceText> AllTexts() {
  std::vector<SourceText> all;
  for (const char* folder :
       {"adapters", "checker", "designer", "recording", "server", "src", "tools"}) {
    for (SourceText& text : TextsOf(QBTD_SOURCE_DIR, folder)) all.push_back(std::move(text));
  }
  return all;
}

// The messages among the texts, and what those of the designer's window are in Chinese.
std::vector<SourceText> MessagesOf(const std::vector<SourceText>& texts) {
  std::vector<SourceText> messages;
  for (const SourceText& text : texts) {
    if (!IsMessage(text)) continue;
    messages.push_back(text);
    const auto english = std::ranges::find_if(texts, [&](const SourceText& word) {
      return IsOfDesignerWords(word) && word.text == text.text;
    });
    if (IsSaidInABox(text) && english != texts.end()) messages.push_back(*std::next(english));
  }
  return messages;
}

// The first cells of the tables.
std::vector<std::string> Entries(const Section& section) {
  std::ifstream page(std::string(QBTD_SOURCE_DIR) + section.page);
  std::vector<std::string> entries;
  bool isInside = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with(section.next)) isInside = line == section.heading;
    if (!isInside || !line.starts_with("| ") || line.starts_with(section.head)) continue;
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
  const std::vector<std::string> entries = Entries(kIndex);
  ASSERT_GT(entries.size(), 50U);
  std::set<std::string> told;
  for (const SourceText& text : MessagesOf(AllTexts())) {
    const std::string core = Core(text.text);
    if (core.empty() || !told.insert(core).second) continue;
    EXPECT_TRUE(std::ranges::any_of(
        entries, [&](const std::string& entry) { return entry.find(core) != std::string::npos; }))
        << "“" << core << "” of " << text.file << " has no entry in docs/troubleshooting.md";
  }
  EXPECT_GT(told.size(), 100U) << "the sources are read";
}

void ExpectEachPartIn(const std::vector<SourceText>& texts,
                      const std::vector<std::string>& entries) {
  for (const std::string& entry : entries) {
    for (const std::string& part : PartsOf(entry)) {
      EXPECT_TRUE(std::ranges::any_of(
          texts, [&](const SourceText& text) { return text.text.find(part) != std::string::npos; }))
          << "“" << part << "” of the entry “" << entry << "” stands in no source";
    }
  }
}

TEST(MessageIndex, HasNoMessageThatNobodyShows) {
  ExpectEachPartIn(AllTexts(), Entries(kIndex));
}

TEST(ExplanationTable, HasNoSentenceThatNoExplanationSays) {
  const std::vector<SourceText> texts = TextsOf(QBTD_SOURCE_DIR, "adapters/explanation");
  for (const Section& section : kExplanations) {
    const std::vector<std::string> entries = Entries(section);
    EXPECT_GT(entries.size(), 15U) << section.page;
    ExpectEachPartIn(texts, entries);
  }
}

}  // namespace
}  // namespace td
