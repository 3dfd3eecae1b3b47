// docs/checking.md and its Chinese twin: their table of findings and their examples.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "checked_sample.h"
#include "checker/finding_messages.h"
#include "checker/report.h"
#include "program_run.h"

namespace td::checker {
namespace {

struct Page {
  const char* file;
  Language language;
  const char* locale;
};
constexpr Page kPages[] = {{"docs/checking.md", Language::kEnglish, "C.UTF-8"},
                           {"docs/checking.zh-CN.md", Language::kChinese, "zh_CN.UTF-8"}};

std::string ContentOf(const std::string& file) {
  std::stringstream content;
  content << std::ifstream(std::string(QBTD_SOURCE_DIR "/") + file).rdbuf();
  return content.str();
}

// The blocks of the page in a language of their own.
std::vector<std::string> Blocks(const std::string& page, const std::string& language) {
  std::vector<std::string> blocks;
  const std::string fence = "```" + language + "\n";
  for (std::size_t at = page.find(fence); at != std::string::npos; at = page.find(fence, at + 1)) {
    const std::size_t begin = at + fence.size();
    blocks.push_back(page.substr(begin, page.find("```", begin) - begin));
  }
  return blocks;
}

TEST(CheckingDocs, TheTableHasEachKindWithItsSeverity) {
  for (const Page& page : kPages) {
    const std::string content = ContentOf(page.file);
    for (const FindingMessage& message : FindingMessages()) {
      const std::string row =
          "| `" + std::string(message.id) + "` | " + SeverityId(message.severity) + " | ";
      EXPECT_NE(content.find(row), std::string::npos) << page.file << ": " << row;
    }
    const std::regex rows("\n\\| `([a-z0-9-]+)` \\| (error|warning|hint) \\|");
    const auto count =
        std::distance(std::sregex_iterator(content.begin(), content.end(), rows), {});
    EXPECT_EQ(static_cast<std::size_t>(count), FindingMessages().size()) << page.file;
  }
}

TEST(CheckingDocs, BothHaveTheSameHeadingsAndStatements) {
  const auto levels = [](const std::string& content) {
    std::vector<std::string> found;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("#")) found.push_back(line.substr(0, line.find(' ')));
    }
    return found;
  };
  const std::string english = ContentOf(kPages[0].file);
  const std::string chinese = ContentOf(kPages[1].file);
  EXPECT_EQ(levels(english), levels(chinese));
  EXPECT_EQ(Blocks(english, "sql"), Blocks(chinese, "sql"));
  EXPECT_EQ(Blocks(english, "sh"), Blocks(chinese, "sh"));
}

// A statement breaks the sample, a command checks it, and a text is what it says.
TEST(CheckingDocs, TheExamplesGiveWhatThePageSays) {
  for (const Page& page : kPages) {
    const std::string content = ContentOf(page.file);
    const std::vector<std::string> scripts = Blocks(content, "sql");
    const std::vector<std::string> commands = Blocks(content, "sh");
    const std::vector<std::string> outputs = Blocks(content, "text");
    ASSERT_FALSE(scripts.empty());
    ASSERT_EQ(scripts.size(), commands.size()) << page.file;
    ASSERT_EQ(scripts.size(), outputs.size()) << page.file;
    for (std::size_t i = 0; i < scripts.size(); ++i) {
      CheckedSample sample;
      sample.Run(scripts[i]);
      const std::string command =
          std::regex_replace(std::regex_replace(commands[i], std::regex("tdprint "),
                                                std::string(TDPRINT_PROGRAM) + " "),
                             std::regex("sqlite:shop\\.db"), sample.Connection());
      const ProgramResult result =
          ProgramRun({"env", "QT_QPA_PLATFORM=offscreen", std::string("LC_ALL=") + page.locale,
                      "sh", "-c", command},
                     sample.Folder())
              .Finish();
      EXPECT_EQ(result.out, outputs[i]) << page.file << "\n" << result.err;
    }
  }
}

}  // namespace
}  // namespace td::checker
