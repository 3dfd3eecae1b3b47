#include <cerrno>
#include <cstdlib>

#include "files/user_files.h"
#include "files/windows_files.h"

namespace td {

std::filesystem::path UserConfigFolder() {
  const wchar_t* folder = _wgetenv(L"APPDATA");
  return folder == nullptr ? L"" : folder;
}

std::optional<std::string> ReadUserFile(const std::filesystem::path& file, std::size_t largest) {
  try {
    return ReadWholeFile(file, largest);
  } catch (const FileError& error) {
    if (error.Number() == ENOENT) return std::nullopt;
    throw;
  }
}

}  // namespace td
