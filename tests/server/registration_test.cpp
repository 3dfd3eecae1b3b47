// The user's registration, and objects made by name from it.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "objects/variant_values.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& path) {
  std::stringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

unsigned ModeOf(const fs::path& path) {
  struct stat state {};
  EXPECT_EQ(stat(path.c_str(), &state), 0) << path;
  return state.st_mode & 07777U;
}

class Registration : public ServerTest {
 protected:
  Registration() { setenv("XDG_DATA_HOME", Data().c_str(), 1); }
  ~Registration() override {
    printer_ = {};
    TdUnloadUnusedModules();
  }

  [[nodiscard]] fs::path Data() const { return folder_.File("data"); }
  [[nodiscard]] fs::path Classes() const { return Data() / "qbtdprinter" / "classes"; }

  TdResult Create(const char* name, std::string* description = nullptr) {
    TdDispatch* object = nullptr;
    TdExceptionInfo info{};
    const TdResult result = TdCreateObject(name, &object, &info);
    if (description != nullptr) *description = TextOf(info.description);
    TdClearException(&info);
    printer_ = Reference<TdDispatch>::Taking(object);
    return result;
  }

  Reference<TdDispatch> printer_;
};

TEST_F(Registration, MakesObjectsByName) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  EXPECT_EQ(Create("qbtdprinter.PRINTER"), TD_OK);
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  EXPECT_TRUE(HasPrinted("大米"));
  EXPECT_EQ(Create(TD_SETTINGS_CLASS_NAME), TD_OK);
  EXPECT_EQ(Create("QBTDPRINTER.session"), TD_OK);
  EXPECT_EQ(Create("QbTdPrinter.Other"), TD_NAME_NOT_REGISTERED);
}

TEST_F(Registration, IsTheUsersAlone) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  EXPECT_EQ(ModeOf(Classes()), 0600U);
  EXPECT_EQ(ModeOf(Classes().parent_path()), 0700U);
  EXPECT_EQ(ModeOf(Data()), 0700U);
  const std::string content = Content(Classes());
  EXPECT_NE(content.find("QbTdPrinter.Printer\t{2389511E-AE07-4A8F-BF68-F2D15542C87E}\t" QBTD_MODULE
                         "\n"),
            std::string::npos)
      << content;
}

TEST_F(Registration, MayBeWrittenAgainAndLeavesNoOtherFile) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  ASSERT_EQ(module_->registerServer(), TD_OK);
  const auto entries = fs::directory_iterator(Classes().parent_path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(Registration, IsRemovedAndMayBeRemovedAgain) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  EXPECT_EQ(module_->unregisterServer(), TD_OK);
  EXPECT_FALSE(fs::exists(Classes()));
  EXPECT_EQ(module_->unregisterServer(), TD_OK);
  std::string description;
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME, &description), TD_NAME_NOT_REGISTERED);
  EXPECT_EQ(description, "类“QbTdPrinter.Printer”没有登记，请先登记组件。");
}

TEST_F(Registration, LiesInTheHomeFolderWhenNoOtherIsNamed) {
  unsetenv("XDG_DATA_HOME");
  setenv("HOME", folder_.File("home").c_str(), 1);
  const std::unique_ptr<char, decltype(&free)> file(TdRegistrationFile(), &free);
  EXPECT_EQ(std::string(file.get()), folder_.File("home/.local/share/qbtdprinter/classes"));
  setenv("XDG_DATA_HOME", "relative/folder", 1);
  const std::unique_ptr<char, decltype(&free)> again(TdRegistrationFile(), &free);
  EXPECT_STREQ(again.get(), file.get()) << "a relative folder is as good as none";
}

TEST_F(Registration, NeitherFollowsNorKeepsALink) {
  const fs::path victim = folder_.File("victim");
  std::ofstream(victim) << "unchanged";
  fs::create_directories(Classes().parent_path());
  fs::create_symlink(victim, Classes());
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME), TD_NO_ACCESS);
  EXPECT_EQ(module_->registerServer(), TD_OK);
  EXPECT_EQ(Content(victim), "unchanged");
  EXPECT_FALSE(fs::is_symlink(Classes()));
  fs::remove(Classes());
  fs::create_symlink(victim, Classes());
  EXPECT_EQ(module_->unregisterServer(), TD_OK);
  EXPECT_TRUE(fs::exists(victim));
}

TEST_F(Registration, RefusesALinkInThePlaceOfItsFolder) {
  fs::create_directories(folder_.File("elsewhere"));
  fs::create_directories(Data());
  fs::create_directory_symlink(folder_.File("elsewhere"), Data() / "qbtdprinter");
  EXPECT_EQ(module_->registerServer(), TD_NO_ACCESS);
  EXPECT_TRUE(fs::is_empty(folder_.File("elsewhere")));
}

TEST_F(Registration, RefusesFoldersThatOthersMayWriteTo) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  for (const fs::path& folder : {Classes().parent_path(), Data()}) {
    for (const mode_t mode : {0777U, 0770U}) {
      chmod(folder.c_str(), mode);
      std::string description;
      EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME, &description), TD_NO_ACCESS) << folder;
      EXPECT_NE(description.find("可被其他用户修改"), std::string::npos) << description;
      EXPECT_EQ(module_->registerServer(), TD_NO_ACCESS);
      EXPECT_EQ(module_->unregisterServer(), TD_NO_ACCESS);
    }
    chmod(folder.c_str(), 0700);
  }
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME), TD_OK);
}

TEST_F(Registration, ASharedFolderOnTheWayNeedsTheStickyBit) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  chmod(Data().c_str(), 01777);
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME), TD_OK) << "nobody can replace another's folder in it";
  chmod(Classes().parent_path().c_str(), 01777);
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME), TD_NO_ACCESS)
      << "but the file needs a folder of its own";
}

TEST_F(Registration, RefusesAFileThatOthersMayWriteTo) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  chmod(Classes().c_str(), 0666);
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME), TD_NO_ACCESS);
}

TEST_F(Registration, RefusesAFileOfAnotherUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give a file away";
  ASSERT_EQ(module_->registerServer(), TD_OK);
  ASSERT_EQ(chown(Classes().c_str(), 65534, 65534), 0);
  std::string description;
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME, &description), TD_NO_ACCESS);
  EXPECT_NE(description.find("属于其他用户"), std::string::npos);
}

TEST_F(Registration, RefusesAModuleThatOthersMayChange) {
  fs::create_directories(folder_.File("modules"));
  const std::string copy = folder_.File("modules/QbTdPrinter.so");
  fs::copy_file(QBTD_MODULE, copy);
  const LoadedModule module(copy);
  ASSERT_EQ(module.registerServer(), TD_OK);
  EXPECT_NE(Content(Classes()).find(copy), std::string::npos);
  chmod(copy.c_str(), 0777);
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME), TD_NO_ACCESS);
  EXPECT_EQ(module.registerServer(), TD_NO_ACCESS);
  chmod(copy.c_str(), 0755);
  chmod(folder_.File("modules").c_str(), 0777);
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME), TD_NO_ACCESS);
  EXPECT_EQ(module.registerServer(), TD_NO_ACCESS);
}

TEST_F(Registration, AModuleThatIsGoneOrNoModuleIsAClearError) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  const auto replace = [this](const std::string& path) {
    std::ofstream(Classes()) << "QbTdPrinter.Printer\t{2389511E-AE07-4A8F-BF68-F2D15542C87E}\t"
                             << path << "\n";
  };
  replace(folder_.File("gone.so"));
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME), TD_FILE_NOT_FOUND);
  std::ofstream(folder_.File("text.so")) << "no module";
  replace(folder_.File("text.so"));
  std::string description;
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME, &description), TD_FAILURE);
  EXPECT_NE(description.find("无法装载模块"), std::string::npos) << description;
}

TEST_F(Registration, LeavesTheFileOfAProcessWithTheSameNumberAlone) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  const fs::path other = Classes().string() + "." + std::to_string(getpid());
  std::ofstream(other) << "still being written";
  ASSERT_EQ(module_->registerServer(), TD_OK);
  EXPECT_EQ(Content(other), "still being written");
}

TEST_F(Registration, IsARegularFileOfAModestSize) {
  fs::create_directories(Classes().parent_path());
  chmod(Classes().parent_path().c_str(), 0700);
  chmod(Data().c_str(), 0700);
  ASSERT_EQ(mkfifo(Classes().c_str(), 0600), 0);
  std::string description;
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME, &description), TD_FAILURE) << "nobody waits for a pipe";
  EXPECT_NE(description.find("不是普通文件"), std::string::npos) << description;
  fs::remove(Classes());
  std::ofstream(Classes()) << std::string(70000, '#');
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME, &description), TD_FAILURE);
  EXPECT_NE(description.find("文件太大"), std::string::npos) << description;
}

TEST_F(Registration, AnEmptyModulePathIsRefused) {
  TdDispatch* object = nullptr;
  TdExceptionInfo info{};
  EXPECT_EQ(TdCreateObjectFromModule("", &kTdPrinterClass, &object, &info), TD_FILE_NOT_FOUND);
  EXPECT_EQ(TextOf(info.description), "没有给出模块的文件名。");
  EXPECT_EQ(object, nullptr);
  TdClearException(&info);
}

TEST_F(Registration, ADamagedFileIsAClearError) {
  ASSERT_EQ(module_->registerServer(), TD_OK);
  for (const std::string content :
       {"QbTdPrinter.Printer\n", "QbTdPrinter.Printer\t{2389511E}\t/x.so\n", "\t\t\t\n",
        "QbTdPrinter.Printer\t{2389511E-AE07-4A8F-BF68-F2D15542C87E}\trelative.so\n",
        "QbTdPrinter.Printer\t{ 389511E-AE07-4A8F-BF68-F2D15542C87E}\t/x.so\n",
        "QbTdPrinter.Printer\t{0x89511E-AE07-4A8F-BF68-F2D15542C87E}\t/x.so\n"}) {
    std::ofstream(Classes()) << content;
    std::string description;
    EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME, &description), TD_FAILURE) << content;
    EXPECT_EQ(description, "组件的登记文件已损坏，请重新登记。") << content;
  }
  std::ofstream(Classes()) << std::string(70000, 'x');
  EXPECT_EQ(Create(TD_PRINTER_CLASS_NAME), TD_FAILURE);
  fs::remove(Classes());
  fs::create_directory(Classes());
  EXPECT_TRUE(TD_FAILED(Create(TD_PRINTER_CLASS_NAME))) << "a folder in the place of the file";
}

}  // namespace
}  // namespace td
