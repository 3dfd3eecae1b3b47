#include "pictures/component_folder.h"

#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <system_error>

#include "platform/failure.h"

namespace td {

std::string FolderOfLoadedComponent() {
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
  if (error) throw Failure(kPathNotFound, "无法确定组件所在的文件夹。");
  return whole.parent_path().string();
}

}  // namespace td
