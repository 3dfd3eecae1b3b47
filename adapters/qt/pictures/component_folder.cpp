#include "pictures/component_folder.h"

#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <system_error>

#include "platform/failure.h"

namespace td {
namespace {

// Empty when the system can't tell.
std::string FindFolder() {
  Dl_info info = {};
  void* found = nullptr;
  std::filesystem::path file = "/proc/self/exe";
  if (dladdr1(reinterpret_cast<void*>(&FolderOfLoadedComponent), &info, &found, RTLD_DL_LINKMAP) !=
      0) {
    const auto* module = static_cast<const link_map*>(found);
    const bool isProgram = module->l_name == nullptr || module->l_name[0] == '\0';
    if (!isProgram) file = module->l_name;
  }
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::canonical(file, error);
  return error ? std::string() : whole.parent_path().string();
}

const std::string& KnownFolder() {
  static const std::string folder = FindFolder();
  return folder;
}

// The loader's name of a file may be relative. So it is looked up while the component is being
// loaded: later the program may stand in another folder.
[[maybe_unused]] const std::string& folderAtLoading = KnownFolder();

}  // namespace

std::string FolderOfLoadedComponent() {
  if (KnownFolder().empty()) throw Failure(kPathNotFound, "无法确定组件所在的文件夹。");
  return KnownFolder();
}

}  // namespace td
