#include "module/module_file.h"
#include "platform/failure.h"
#include "windows/api/windows_api.h"

namespace td {
namespace {

std::filesystem::path FindFile() {
  HMODULE module = nullptr;
  constexpr DWORD kByAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (GetModuleHandleExW(kByAddress, reinterpret_cast<const wchar_t*>(&ModuleFile), &module) ==
      FALSE) {
    return {};
  }
  std::wstring file(32'768, L'\0');
  file.resize(GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size())));
  return file;
}

}  // namespace

const std::filesystem::path& ModuleFile() {
  static const std::filesystem::path file = FindFile();
  return file;
}

// The system's libraries keep nothing of the module, so that it can be unloaded after any print.
void KeepModuleInMemory() {}

}  // namespace td
