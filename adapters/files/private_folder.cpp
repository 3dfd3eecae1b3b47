#include "files/private_folder.h"

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace td {

std::string MakePrivateFolder(const std::string& path) {
  const std::filesystem::path folder = path;
  const std::filesystem::path parent = folder.parent_path();
  std::error_code error;
  if (!parent.empty() && parent != folder && !std::filesystem::is_directory(parent, error)) {
    if (std::string failed = MakePrivateFolder(parent.string()); !failed.empty()) return failed;
  }
  return mkdir(folder.c_str(), S_IRWXU) == 0 || errno == EEXIST ? std::string() : path;
}

}  // namespace td
