// Lines that several processes add, and what can be in their way.
#include "print_log/log_writer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "file_tools.h"

namespace td {
namespace {

namespace fs = std::filesystem;

class LogWriter : public testing::Test {
 protected:
  [[nodiscard]] std::string Content() const {
    std::stringstream content;
    content << std::ifstream(path_).rdbuf();
    return content.str();
  }
  static int ErrorOf(const std::string& path) {
    try {
      AppendLine(path, "line\n");
      return 0;
    } catch (const FileError& error) {
      return error.Number();
    }
  }

  TestFolder folder_;
  const std::string path_ = folder_ / "prints.log";
};

TEST_F(LogWriter, MakesTheFileForTheUserAlone) {
  AppendLine(path_, "one\n");
  AppendLine(path_, "two\n");
  EXPECT_EQ(Content(), "one\ntwo\n");
  struct stat state {};
  ASSERT_EQ(stat(path_.c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777U, 0600U);
}

TEST_F(LogWriter, KeepsTheRightsOfAFileThatIsThere) {
  std::ofstream{path_};
  chmod(path_.c_str(), 0660);
  AppendLine(path_, "one\n");
  struct stat state {};
  ASSERT_EQ(stat(path_.c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777U, 0660U);
}

TEST_F(LogWriter, LinesOfManyProcessesDoNotMix) {
  constexpr int kProcesses = 8;
  constexpr int kLines = 60;
  for (int process = 0; process < kProcesses; ++process) {
    if (fork() != 0) continue;
    // Long enough that a write in parts would show.
    const std::string line(20000, static_cast<char>('a' + process));
    for (int i = 0; i < kLines; ++i) AppendLine(path_, line + "\n");
    _exit(0);
  }
  for (int process = 0; process < kProcesses; ++process) {
    int status = 0;
    ASSERT_GT(wait(&status), 0);
    EXPECT_EQ(status, 0);
  }
  std::map<char, int> lines;
  std::istringstream log(Content());
  for (std::string line; std::getline(log, line);) {
    ASSERT_EQ(line.size(), 20000U);
    ASSERT_EQ(line.find_first_not_of(line[0]), std::string::npos);
    ++lines[line[0]];
  }
  EXPECT_EQ(lines.size(), static_cast<std::size_t>(kProcesses));
  for (const auto& [process, count] : lines) EXPECT_EQ(count, kLines) << process;
}

TEST_F(LogWriter, AHalfLineOfAKilledProcessSwallowsNoOther) {
  std::ofstream(path_) << "whole\n{\"time\":\"20";
  AppendLine(path_, "next\n");
  EXPECT_EQ(Content(), "whole\n{\"time\":\"20\nnext\n");
}

TEST_F(LogWriter, ALockThatNobodyGivesBackCostsAnEmptyLine) {
  AppendLine(path_, "one\n");
  const Descriptor hanging(open(path_.c_str(), O_RDONLY | O_CLOEXEC));
  ASSERT_EQ(flock(hanging.Number(), LOCK_EX), 0);
  AppendLine(path_, "two\n");
  EXPECT_EQ(Content(), "one\n\ntwo\n");
}

TEST_F(LogWriter, AFileThatWasMovedAwayIsLeftAloneFromThenOn) {
  AppendLine(path_, "one\n");
  fs::rename(path_, path_ + ".1");
  AppendLine(path_, "two\n");
  EXPECT_EQ(Content(), "two\n");
}

TEST_F(LogWriter, FailsWithTheSystemsReasonAndHangsNowhere) {
  EXPECT_EQ(ErrorOf(folder_ / "missing" / "prints.log"), ENOENT);
  EXPECT_EQ(ErrorOf(folder_.Path()), EISDIR);
  EXPECT_EQ(ErrorOf("/dev/null"), EINVAL);
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  EXPECT_NE(ErrorOf(path_), 0) << "nobody reads the pipe";
}

TEST_F(LogWriter, AFullDiskIsAFailureAndTheNextLineIsWhole) {
  AppendLine(path_, "one\n");
  if (const pid_t child = fork(); child == 0) {
    const rlimit few{6, 6};
    setrlimit(RLIMIT_FSIZE, &few);
    _exit(ErrorOf(path_) == EFBIG ? 0 : 1);
  }
  int status = 0;
  ASSERT_GT(wait(&status), 0);
  EXPECT_EQ(status, 0) << "no signal ends the process, either";
  AppendLine(path_, "two\n");
  EXPECT_EQ(Content(), "one\nli\ntwo\n");
}

}  // namespace
}  // namespace td
