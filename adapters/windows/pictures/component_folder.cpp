#include "windows/pictures/component_folder.h"

#include <filesystem>

#include "files/path_text.h"
#include "platform/failure.h"
#include "windows/api/windows_api.h"

namespace td {

std::string FolderOfLoadedComponent() {
  HMODULE module = nullptr;
  constexpr DWORD kByAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  const bool isFound =
      GetModuleHandleExW(kByAddress, reinterpret_cast<const wchar_t*>(&FolderOfLoadedComponent),
                         &module) != FALSE;
  std::wstring file(32'768, L'\0');
  const DWORD length =
      isFound ? GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size())) : 0;
  if (length == 0 || length >= file.size()) {
    throw Failure(kPathNotFound, "无法确定组件所在的文件夹。");
  }
  file.resize(length);
  return TextOf(std::filesystem::path(file).parent_path());
}

}  // namespace td
