#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/read_file.h"
#include "files/user_files.h"

namespace td {

std::filesystem::path UserConfigFolder() {
  const char* config = std::getenv("XDG_CONFIG_HOME");
  if (config != nullptr && *config != '\0') return config;
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home != '\0') return std::filesystem::path(home) / ".config";
  return {};
}

std::optional<std::string> ReadUserFile(const std::filesystem::path& file, std::size_t largest) {
  const Descriptor opened(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (opened.IsOpen()) return ReadRegularFile(opened, largest);
  const int error = errno;
  if (access(file.c_str(), F_OK) != 0) return std::nullopt;
  throw FileError(error);
}

}  // namespace td
