#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <sstream>

#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/read_file.h"
#include "files/user_files.h"

namespace td {
namespace {

namespace fs = std::filesystem;

std::string ValueOf(const char* variable) {
  const char* value = std::getenv(variable);
  return value == nullptr ? std::string() : value;
}

}  // namespace

fs::path UserConfigFolder() {
  if (fs::path config = ValueOf("XDG_CONFIG_HOME"); config.is_absolute()) return config;
  const fs::path home = ValueOf("HOME");
  return home.empty() ? home : home / ".config";
}

std::vector<fs::path> MachineConfigFolders() {
  std::vector<fs::path> folders;
  std::istringstream listed(ValueOf("XDG_CONFIG_DIRS"));
  for (std::string folder; std::getline(listed, folder, ':');) {
    if (fs::path(folder).is_absolute()) folders.emplace_back(folder);
  }
  if (folders.empty()) folders.emplace_back("/etc/xdg");
  return folders;
}

std::optional<std::string> ReadUserFile(const fs::path& file, std::size_t largest) {
  const Descriptor opened(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (opened.IsOpen()) return ReadRegularFile(opened, largest);
  const int error = errno;
  if (access(file.c_str(), F_OK) != 0) return std::nullopt;
  throw FileError(error);
}

}  // namespace td
