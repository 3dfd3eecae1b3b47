#include "windows/api/modules.h"

#include <string>

// Where this module lies in memory, a symbol of the linker's.
extern "C" const IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace td {

HINSTANCE OwnModule() {
  return reinterpret_cast<HINSTANCE>(const_cast<IMAGE_DOS_HEADER*>(&__ImageBase));
}

std::filesystem::path FileOf(HMODULE module) {
  std::wstring file(32'768, L'\0');  // no path of the system's is longer
  const DWORD length = GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size()));
  file.resize(length < file.size() ? length : 0);
  return file;
}

}  // namespace td
