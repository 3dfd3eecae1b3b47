// Tells whether a path still leads to the same file with the same content.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

namespace td {

// What the file system says of a file. A file that is open keeps its inode, so an equal device and
// inode is the same file; size and time give away a file that was written over in its place.
struct FileStamp {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  time_t seconds = 0;
  long nanoseconds = 0;

  bool operator==(const FileStamp&) const = default;
  [[nodiscard]] bool SameFile(const FileStamp& other) const {
    return device == other.device && inode == other.inode;
  }
};

// The stamp of an ordinary file; nothing, with errno set, when the path leads to none. A directory
// or a device gives EISDIR.
[[nodiscard]] std::optional<FileStamp> StampOf(const std::string& path);

}  // namespace td
