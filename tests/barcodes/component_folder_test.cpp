#include "pictures/component_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace td {
namespace {

TEST(ComponentFolder, IsTheFolderOfTheProgramThatTheComponentIsLinkedInto) {
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(FolderOfLoadedComponent(), program.parent_path().string());
}

TEST(ComponentFolder, DoesNotDependOnTheWorkingFolder) {
  const std::string before = FolderOfLoadedComponent();
  const auto working = std::filesystem::current_path();
  std::filesystem::current_path("/");
  EXPECT_EQ(FolderOfLoadedComponent(), before);
  std::filesystem::current_path(working);
}

}  // namespace
}  // namespace td
