#include <string>

#include "program_folder.h"
#include "windows/api/windows_api.h"

namespace td {

std::filesystem::path ProgramFolder() {
  std::wstring file(32'768, L'\0');
  file.resize(GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
  return std::filesystem::path(file).parent_path();
}

}  // namespace td
