#include <sys/stat.h>

#include <cerrno>

#include "sqlite/file_stamp.h"

namespace td {

std::optional<FileStamp> StampOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  if (!S_ISREG(status.st_mode)) {
    errno = EISDIR;
    return std::nullopt;
  }
  return FileStamp{status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
                   status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

}  // namespace td
