// Tells whether a path still leads to the same file with the same content.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace td {

// What the file system says of a file. A file that is open keeps its inode, so an equal device and
// inode is the same file; size and time give away a file that was written over in its place.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;
  std::int64_t seconds = 0;
  std::int64_t fraction = 0;  // of a second, in the file system's unit

  bool operator==(const FileStamp&) const = default;
  [[nodiscard]] bool SameFile(const FileStamp& other) const {
    return device == other.device && inode == other.inode;
  }
};

// The stamp of an ordinary file; nothing, with errno set, when the path leads to none. A directory
// or a device gives EISDIR.
[[nodiscard]] std::optional<FileStamp> StampOf(const std::string& path);

}  // namespace td
