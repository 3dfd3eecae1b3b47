// Lines that several writers add, and what can be in their way.
#include "print_log/log_writer.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <thread>
#include <vector>

#include "files/file_error.h"
#include "files/path_text.h"

namespace td {
namespace {

namespace fs = std::filesystem;

class LogWriter : public testing::Test {
 protected:
  LogWriter() {
    std::random_device random;
    do {
      folder_ = fs::temp_directory_path() / PathOf("日志-" + std::to_string(random()));
    } while (!fs::create_directory(folder_));
    path_ = TextOf(folder_ / "prints.log");
  }
  ~LogWriter() override { fs::remove_all(folder_); }

  [[nodiscard]] std::string Content() const {
    std::stringstream content;
    content << std::ifstream(PathOf(path_), std::ios::binary).rdbuf();
    return content.str();
  }
  static int ErrorOf(const fs::path& path) {
    try {
      AppendLine(TextOf(path), "line\n");
      return 0;
    } catch (const FileError& error) {
      return error.Number();
    }
  }

  fs::path folder_;
  std::string path_;
};

TEST_F(LogWriter, AddsLines) {
  AppendLine(path_, "one\n");
  AppendLine(path_, "two\n");
  EXPECT_EQ(Content(), "one\ntwo\n");
}

// Each writer has the file open for itself, as processes do.
TEST_F(LogWriter, LinesOfManyWritersDoNotMix) {
  constexpr int kWriters = 6;
  constexpr int kLines = 20;
  std::vector<std::thread> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.emplace_back([this, writer] {
      const std::string line(20'000, static_cast<char>('a' + writer));
      for (int i = 0; i < kLines; ++i) AppendLine(path_, line + "\n");
    });
  }
  for (std::thread& writer : writers) writer.join();
  std::map<char, int> lines;
  std::istringstream log(Content());
  for (std::string line; std::getline(log, line);) {
    if (line.empty()) continue;  // of a lock that was waited for in vain
    ASSERT_EQ(line.size(), 20'000U);
    ASSERT_EQ(line.find_first_not_of(line[0]), std::string::npos);
    ++lines[line[0]];
  }
  EXPECT_EQ(lines.size(), static_cast<std::size_t>(kWriters));
  for (const auto& [writer, count] : lines) EXPECT_EQ(count, kLines) << writer;
}

TEST_F(LogWriter, AHalfLineOfAKilledProcessSwallowsNoOther) {
  std::ofstream(PathOf(path_), std::ios::binary) << "whole\n{\"time\":\"20";
  AppendLine(path_, "next\n");
  EXPECT_EQ(Content(), "whole\n{\"time\":\"20\nnext\n");
}

TEST_F(LogWriter, AFileThatIsReadMeanwhileIsAddedTo) {
  AppendLine(path_, "one\n");
  const std::ifstream reader(PathOf(path_), std::ios::binary);
  AppendLine(path_, "two\n");
  EXPECT_EQ(Content(), "one\ntwo\n");
}

TEST_F(LogWriter, FailsWithTheSystemsReason) {
  EXPECT_EQ(ErrorOf(folder_ / "missing" / "prints.log"), ENOENT);
  EXPECT_EQ(ErrorOf(folder_), EISDIR);
  EXPECT_EQ(ErrorOf("NUL"), EINVAL);
}

}  // namespace
}  // namespace td
