#include "page_outputs/export_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "page_outputs/export_file.h"
#include "test_tools.h"

namespace td {
namespace {

namespace fs = std::filesystem;

int ModeOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
  return static_cast<int>(status.st_mode & 07777);
}

void Write(const fs::path& path, const std::string& content) {
  std::ofstream(path) << content;
}

std::size_t EntriesIn(const fs::path& folder) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

// Sets a variable for a test's length.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* former = std::getenv(name)) former_ = former;
    value == nullptr ? unsetenv(name) : setenv(name, value, 1);
  }
  ~Variable() { former_.empty() ? unsetenv(name_) : setenv(name_, former_.c_str(), 1); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::string former_;
};

TEST(PrivateFile, LiesInAFolderThatIsMadeForTheUserAlone) {
  const Folder folder;
  const std::string state = folder.Path("state/deep/qbtdprinter");
  WritePrivateFile(state, "订单.html", WriterOf("text"));
  EXPECT_EQ(ReadFile(state + "/订单.html"), "text");
  EXPECT_EQ(ModeOf(state), 0700);
  EXPECT_EQ(ModeOf(state + "/订单.html"), 0600);
  EXPECT_EQ(EntriesIn(state), 1U);
}

TEST(PrivateFile, ReplacesAnOldFileAndTakesItsRightsAway) {
  const Folder folder;
  Write(folder.Path("订单.html"), "a much longer old text");
  fs::permissions(folder.Path("订单.html"), fs::perms(0666));
  WritePrivateFile(folder.Path(""), "订单.html", WriterOf("new"));
  EXPECT_EQ(ReadFile(folder.Path("订单.html")), "new");
  EXPECT_EQ(ModeOf(folder.Path("订单.html")), 0600);
}

TEST(PrivateFile, ReplacesALinkAndLeavesItsTargetAlone) {
  const Folder folder;
  Write(folder.Path("precious"), "untouched");
  fs::create_symlink(folder.Path("precious"), folder.Path("订单.html"));
  WritePrivateFile(folder.Path(""), "订单.html", WriterOf("new"));
  EXPECT_EQ(ReadFile(folder.Path("precious")), "untouched");
  EXPECT_FALSE(fs::is_symlink(folder.Path("订单.html")));
  EXPECT_EQ(ReadFile(folder.Path("订单.html")), "new");
}

TEST(PrivateFile, RefusesAFolderThatIsALink) {
  const Folder folder;
  fs::create_directory(folder.Path("elsewhere"));
  fs::create_symlink(folder.Path("elsewhere"), folder.Path("state"));
  EXPECT_EQ(NumberOf([&] { WritePrivateFile(folder.Path("state"), "订单.html", WriterOf("x")); }),
            kPathNotFound);
  EXPECT_TRUE(fs::is_empty(folder.Path("elsewhere")));
}

TEST(PrivateFile, LeavesTheFileOfAProcessWithTheSameNumberAlone) {
  const Folder folder;
  const std::string other = folder.Path(".订单.html." + std::to_string(getpid()));
  Write(other, "still being written");
  WritePrivateFile(folder.Path(""), "订单.html", WriterOf("x"));
  EXPECT_EQ(ReadFile(other), "still being written");
}

TEST(PrivateFile, LeavesTheOldFileWhenTheNewOneCannotBeMade) {
  const Folder folder;
  Write(folder.Path("订单.html"), "old");
  const auto half = [](const ByteSink& sink) {
    sink("half of a page");
    throw Failure(kOutOfMemory, "no more");
  };
  EXPECT_EQ(NumberOf([&] { WritePrivateFile(folder.Path(""), "订单.html", half); }), kOutOfMemory);
  EXPECT_EQ(ReadFile(folder.Path("订单.html")), "old");
  EXPECT_EQ(EntriesIn(folder.Path("")), 1U);
}

TEST(PrivateFile, LeavesNothingBehindWhenItCannotTakeItsName) {
  const Folder folder;
  fs::create_directories(folder.Path("订单.html/full"));
  EXPECT_EQ(NumberOf([&] { WritePrivateFile(folder.Path(""), "订单.html", WriterOf("x")); }),
            kDeviceIo);
  EXPECT_EQ(EntriesIn(folder.Path("")), 1U);
}

TEST(PrivateFile, FailsBelowAFile) {
  const Folder folder;
  Write(folder.Path("file"), "x");
  EXPECT_EQ(
      NumberOf([&] { WritePrivateFile(folder.Path("file/state"), "订单.html", WriterOf("x")); }),
      kPathNotFound);
}

TEST(ExportName, IsTheLastPartOfAPathOfAnySystem) {
  EXPECT_EQ(FileNameOf("c:\\订单.html"), "订单.html");
  EXPECT_EQ(FileNameOf("c:订单.html"), "订单.html");
  EXPECT_EQ(FileNameOf("/a/b/订单.html"), "订单.html");
  EXPECT_EQ(FileNameOf("订单.html"), "订单.html");
}

TEST(StateFolder, IsTheOneThatTheEnvironmentNamesFirst) {
  const Variable home("HOME", "/home/clerk");
  const Variable state("XDG_STATE_HOME", "/var/state");
  const Variable own("QBTDPRINTER_STATE_DIR", "/srv/export");
  EXPECT_EQ(DefaultStateFolder(), "/srv/export");
  const Variable noOwn("QBTDPRINTER_STATE_DIR", nullptr);
  EXPECT_EQ(DefaultStateFolder(), "/var/state/qbtdprinter");
  const Variable relative("XDG_STATE_HOME", "state");
  EXPECT_EQ(DefaultStateFolder(), "/home/clerk/.local/state/qbtdprinter");
}

}  // namespace
}  // namespace td
