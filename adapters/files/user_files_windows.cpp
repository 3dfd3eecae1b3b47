#include <cerrno>
#include <utility>

#include "files/user_files.h"
#include "files/windows_files.h"

namespace td {

namespace fs = std::filesystem;

fs::path UserConfigFolder() {
  return AbsolutePathFrom(L"APPDATA");
}

std::vector<fs::path> MachineConfigFolders() {
  fs::path folder = AbsolutePathFrom(L"PROGRAMDATA");
  if (folder.empty()) return {};
  return {std::move(folder)};
}

std::optional<std::string> ReadUserFile(const fs::path& file, std::size_t largest) {
  try {
    return ReadWholeFile(file, largest);
  } catch (const FileError& error) {
    if (error.Number() == ENOENT) return std::nullopt;
    throw;
  }
}

}  // namespace td
