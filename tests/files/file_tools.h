// What the tests of files have in common.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "file_content.h"
#include "files/descriptor.h"
#include "files/file_error.h"

namespace td {

// A folder that lives as long as a test.
class TestFolder {
 public:
  TestFolder() {
    std::string pattern =
        (std::filesystem::path(testing::TempDir()) / "qbtd-files-XXXXXX").string();
    EXPECT_NE(mkdtemp(pattern.data()), nullptr);
    path_ = pattern;
  }
  ~TestFolder() { std::filesystem::remove_all(path_); }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  [[nodiscard]] std::filesystem::path operator/(const std::string& name) const {
    return path_ / name;
  }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  [[nodiscard]] Descriptor Open() const {
    return Descriptor(open(path_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  }
  [[nodiscard]] std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.insert(entry.path().filename());
    }
    return names;
  }

 private:
  std::filesystem::path path_;
};

inline void Put(const std::filesystem::path& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

inline void MakeOld(const std::filesystem::path& path) {
  const timespec then{std::time(nullptr) - 7200, 0};
  const timespec times[] = {then, then};
  EXPECT_EQ(utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0) << path;
}

inline struct stat StateOf(const std::filesystem::path& path) {
  struct stat state {};
  EXPECT_EQ(lstat(path.c_str(), &state), 0) << path;
  return state;
}

// The error that an action ends with, 0 if there is none.
template <class Action>
int ErrorOf(Action action) {
  try {
    action();
  } catch (const FileError& error) {
    EXPECT_NE(std::string(error.what()), "");
    return error.Number();
  }
  return 0;
}

// Runs an action in a process of its own; its result is the exit status, 255 if it threw.
template <class Action>
int StatusOf(Action action) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      _exit(action());
    } catch (...) {
      _exit(255);
    }
  }
  int state = 0;
  EXPECT_EQ(waitpid(child, &state, 0), child);
  EXPECT_TRUE(WIFEXITED(state)) << "ended by signal " << WTERMSIG(state);
  return WEXITSTATUS(state);
}

}  // namespace td
