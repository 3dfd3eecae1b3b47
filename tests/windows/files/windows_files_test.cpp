#include "files/windows_files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>

#include "files/output_file.h"
#include "files/path_text.h"
#include "files/user_files.h"
#include "files/windows_file.h"

namespace td {
namespace {

namespace fs = std::filesystem;

// A folder that lives as long as a test; its name is no text of any old code page.
class TestFolder {
 public:
  TestFolder() {
    std::random_device random;
    do {
      path_ = fs::temp_directory_path() / PathOf("单据-" + std::to_string(random()));
    } while (!fs::create_directory(path_));
  }
  ~TestFolder() {
    std::error_code ignored;
    fs::remove_all(SystemPath(path_), ignored);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  [[nodiscard]] fs::path operator/(const std::string& name) const { return path_ / PathOf(name); }
  [[nodiscard]] std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(path_)) {
      names.insert(TextOf(entry.path().filename()));
    }
    return names;
  }

 private:
  fs::path path_;
};

template <typename Action>
int ErrorOf(const Action& action) {
  try {
    action();
    return 0;
  } catch (const FileError& error) {
    return error.Number();
  }
}

void Put(const fs::path& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

std::string ContentOf(const fs::path& path) {
  std::stringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

int WriteTo(const fs::path& path, const std::string& content) {
  return ErrorOf([&] { WriteOutput(TextOf(path), WriterOf(content)); });
}

TEST(WindowsFiles, AreMadeAndReplacedWhole) {
  const TestFolder folder;
  EXPECT_EQ(WriteTo(folder / "订单.html", "a long first document"), 0);
  EXPECT_EQ(WriteTo(folder / "订单.html", "second"), 0);
  EXPECT_EQ(ContentOf(folder / "订单.html"), "second");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"订单.html"});
}

TEST(WindowsFiles, ANameAloneIsAFileOfTheCurrentFolder) {
  const TestFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder / "");
  const int first = WriteTo(PathOf("订单.sql"), "one");
  const int second = WriteTo(PathOf("订单.sql"), "two");
  fs::current_path(before);
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 0);
  EXPECT_EQ(ContentOf(folder / "订单.sql"), "two");
}

TEST(WindowsFiles, AWriterThatFailsLeavesTheOldFile) {
  const TestFolder folder;
  Put(folder / "bill.html", "old");
  EXPECT_THROW(ReplaceWholeFile(folder / "bill.html",
                                [](const ByteSink& sink) {
                                  sink("half");
                                  throw std::runtime_error("no more");
                                }),
               std::runtime_error);
  EXPECT_EQ(ContentOf(folder / "bill.html"), "old");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"bill.html"});
}

TEST(WindowsFiles, OneThatIsThereIsNotMadeANewOne) {
  const TestFolder folder;
  CreateWholeFile(folder / "a.jpg", WriterOf("first"));
  EXPECT_EQ(ErrorOf([&] { CreateWholeFile(folder / "a.jpg", WriterOf("second")); }), EEXIST);
  EXPECT_EQ(ContentOf(folder / "a.jpg"), "first");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"a.jpg"});
}

TEST(WindowsFiles, AFolderOrNoPlaceAtAllIsRefused) {
  const TestFolder folder;
  fs::create_directory(folder / "bills");
  EXPECT_EQ(WriteTo(folder / "bills", "x"), EISDIR);
  EXPECT_EQ(WriteTo("", "x"), ENOENT);
  EXPECT_EQ(WriteTo(folder / "none/bill.html", "x"), ENOENT);
  EXPECT_EQ(folder.Names(), std::set<std::string>{"bills"});
}

TEST(WindowsFiles, AProtectedFileIsRefused) {
  const TestFolder folder;
  Put(folder / "bill.html", "old");
  SetFileAttributesW((folder / "bill.html").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(WriteTo(folder / "bill.html", "new"), EACCES);
  EXPECT_EQ(ContentOf(folder / "bill.html"), "old");
  SetFileAttributesW((folder / "bill.html").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(WindowsFiles, AFileThatAnotherProgramHoldsIsAFailureInTheSystemsWords) {
  const TestFolder folder;
  Put(folder / "bill.html", "old");
  const WindowsFile held(CreateFileW((folder / "bill.html").c_str(), GENERIC_READ, FILE_SHARE_READ,
                                     nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(held.IsOpen());
  const int error = WriteTo(folder / "bill.html", "new");
  EXPECT_NE(error, 0);
  EXPECT_EQ(ReasonOf(error).find("错误"), std::string::npos) << ReasonOf(error);
  EXPECT_EQ(ContentOf(folder / "bill.html"), "old");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"bill.html"});
}

// A folder below another one, whose path is longer than the old limit.
fs::path DeepFolderIn(const TestFolder& folder) {
  fs::path deep = folder / "";
  for (int i = 0; i < 8; ++i) {
    deep /= std::wstring(60, L'd');
    EXPECT_TRUE(CreateDirectoryW(SystemPath(deep).c_str(), nullptr)) << i;
  }
  return deep;
}

TEST(WindowsFiles, APathMayBeLongerThanTheOldLimit) {
  const TestFolder folder;
  const fs::path deep = DeepFolderIn(folder);
  ReplaceWholeFile(deep / "bill.html", WriterOf("far down"));
  EXPECT_EQ(ReadWholeFile(deep / "bill.html", 100), "far down");
  EXPECT_EQ(ContentOf(OpenPathOf(TextOf(deep / "bill.html"))), "far down");
  EXPECT_EQ(OpenPathOf(""), fs::path());
}

TEST(WindowsFiles, WhatAnEndedProcessLeftIsRemovedLater) {
  const TestFolder folder;
  const std::string old = ".qbtdprinter-0123456789abcdef";
  const std::string recent = ".qbtdprinter-fedcba9876543210";
  const std::string others = ".qbtdprinter-not-a-draft";
  for (const std::string& name : {old, recent, others}) Put(folder / name, "half");
  const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(2);
  for (const std::string& name : {old, others}) fs::last_write_time(folder / name, longAgo);
  EXPECT_EQ(WriteTo(folder / "bill.html", "x"), 0);
  EXPECT_EQ(folder.Names(), (std::set<std::string>{recent, others, "bill.html"}));
}

TEST(WindowsFiles, OnlyWhatIsOldIsRemovedFarDownToo) {
  const TestFolder folder;
  const fs::path deep = DeepFolderIn(folder);
  const fs::path old = deep / L".qbtdprinter-0123456789abcdef";
  const fs::path recent = deep / L".qbtdprinter-fedcba9876543210";
  for (const fs::path& path : {old, recent}) {
    const WindowsFile file(CreateFileW(SystemPath(path).c_str(), GENERIC_WRITE, 0, nullptr,
                                       CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    constexpr FILETIME kLongAgo = {0, 0x01D00000};
    if (path == old) SetFileTime(file.Handle(), nullptr, nullptr, &kLongAgo);
  }
  ReplaceWholeFile(deep / L"bill.html", WriterOf("x"));
  EXPECT_EQ(GetFileAttributesW(SystemPath(old).c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_NE(GetFileAttributesW(SystemPath(recent).c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(WindowsFiles, ATemporaryOneGoesWithItsOwner) {
  fs::path path;
  {
    const TemporaryFile temporary;
    path = temporary.Path();
    EXPECT_LT(path.native().size(), std::size_t{MAX_PATH});
    EXPECT_FALSE(fs::exists(path));
    Put(path, "x");
  }
  EXPECT_FALSE(fs::exists(path));
}

TEST(WindowsFiles, ATemporaryOneThatAnEndedProcessLeftIsRemovedLater) {
  const fs::path left = TemporaryFile().Path();
  Put(left, "half");
  const TemporaryFile soon;
  EXPECT_TRUE(fs::exists(left)) << "it may still be in use";
  fs::last_write_time(left, fs::file_time_type::clock::now() - std::chrono::hours(2));
  const TemporaryFile later;
  EXPECT_FALSE(fs::exists(left));
}

TEST(WindowsFiles, ADeviceReceivesTheBytesAsTheyCome) {
  EXPECT_EQ(WriteTo("NUL", "bytes"), 0);
}

TEST(WindowsFiles, OnlyARegularFileOfAModestSizeIsRead) {
  const TestFolder folder;
  Put(folder / "a", std::string(70'000, 'x'));
  EXPECT_EQ(ReadWholeFile(folder / "a", 70'000), std::string(70'000, 'x'));
  EXPECT_EQ(ErrorOf([&] { (void)ReadWholeFile(folder / "a", 69'999); }), EFBIG);
  EXPECT_EQ(ErrorOf([&] { (void)ReadWholeFile(folder / "", 100); }), EISDIR);
  EXPECT_EQ(ErrorOf([&] { (void)ReadWholeFile(folder / "b", 100); }), ENOENT);
  EXPECT_EQ(ReadUserFile(folder / "b", 100), std::nullopt);
}

TEST(WindowsFiles, TheSettingsOfAUserLieInTheRoamingFolder) {
  _wputenv(L"APPDATA=C:\\users\\某人\\AppData\\Roaming");
  EXPECT_EQ(TextOf(UserConfigFolder()), "C:\\users\\某人\\AppData\\Roaming");
}

// As programs set variables that know nothing of this file's run-time library.
TEST(WindowsFiles, AVariableIsReadAsTheSystemHasIt) {
  SetEnvironmentVariableW(L"APPDATA", L"D:\\别人\\Roaming");
  EXPECT_EQ(TextOf(UserConfigFolder()), "D:\\别人\\Roaming");
  const std::wstring longPath = L"D:\\" + std::wstring(300, L'd');
  SetEnvironmentVariableW(L"APPDATA", longPath.c_str());
  EXPECT_EQ(UserConfigFolder().wstring(), longPath);
  SetEnvironmentVariableW(L"APPDATA", L"relative");
  EXPECT_EQ(UserConfigFolder(), fs::path());
  SetEnvironmentVariableW(L"APPDATA", nullptr);
  EXPECT_EQ(UserConfigFolder(), fs::path());
}

}  // namespace
}  // namespace td
