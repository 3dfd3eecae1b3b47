// What the component says, in the words that stand in its own code.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>

namespace td {
namespace {

namespace fs = std::filesystem;

bool IsCode(const fs::path& file) {
  return file.extension() == ".cpp" || file.extension() == ".h";
}

// The texts in quotes in a file that contain the words, without those in comments.
std::set<std::string> TextsWith(const fs::path& file, const std::string& words) {
  static const std::regex pattern(R"re("(?:[^"\\]|\\.)*"|//.*)re");
  std::set<std::string> texts;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    for (std::sregex_iterator found(line.begin(), line.end(), pattern), end; found != end;
         ++found) {
      const std::string text = found->str();
      if (text.front() == '"' && text.find(words) != std::string::npos) texts.insert(text);
    }
  }
  return texts;
}

// A description with the character is taken for a lock conflict, and the call made again for ever.
TEST(Descriptions, HaveTheCharacterForLockOnlyInTheOneForALockConflict) {
  std::set<std::string> texts;
  for (const char* folder : {"adapters", "server", "src", "tools"}) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(QBTD_SOURCE_DIR) / folder)) {
      if (IsCode(entry.path())) texts.merge(TextsWith(entry.path(), "锁"));
    }
  }
  EXPECT_EQ(texts, (std::set<std::string>{"\"锁\"", "\"数据库被锁定（\""}))
      << "the character itself, and the lead of the engine's words";
}

}  // namespace
}  // namespace td
