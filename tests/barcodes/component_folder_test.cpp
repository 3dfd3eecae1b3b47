#include "pictures/component_folder.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "folder_module.h"

namespace td {
namespace {

struct CloseModule {
  void operator()(void* module) const { dlclose(module); }
};

// Stands in another folder for the length of a test.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::filesystem::path& folder) {
    std::filesystem::current_path(folder);
  }
  ~WorkingFolder() { std::filesystem::current_path(before_); }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

TEST(ComponentFolder, IsTheFolderOfTheProgramThatTheComponentIsLinkedInto) {
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(FolderOfLoadedComponent(), program.parent_path().string());
}

TEST(ComponentFolder, DoesNotDependOnTheWorkingFolder) {
  const std::string before = FolderOfLoadedComponent();
  const WorkingFolder root("/");
  EXPECT_EQ(FolderOfLoadedComponent(), before);
}

TEST(ComponentFolder, OfAModuleThatWasLoadedByARelativePathIsKnownFromEverywhere) {
  const std::filesystem::path file = QBTD_FOLDER_MODULE;
  const WorkingFolder beside(file.parent_path());
  const std::unique_ptr<void, CloseModule> module(
      dlopen(("./" + file.filename().string()).c_str(), RTLD_NOW | RTLD_LOCAL));
  ASSERT_TRUE(module) << dlerror();
  const auto write =
      reinterpret_cast<decltype(&WriteModuleFolder)>(dlsym(module.get(), "WriteModuleFolder"));
  ASSERT_NE(write, nullptr);

  const WorkingFolder root("/");
  std::string folder;
  write(&folder);
  EXPECT_EQ(folder, std::filesystem::canonical(file).parent_path().string());
}

}  // namespace
}  // namespace td
