// Files of Windows, by path. A file appears whole or not at all: its bytes go into one with a
// random name in the same folder, which takes its place when all are there. What a process that was
// ended in the middle has left is removed an hour later by the next one that writes into the
// folder.
//
// All fail with FileError; what `write` throws goes through and leaves the folder as it was.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "files/file_error.h"
#include "files/written_bytes.h"

namespace td {

// The path in the form in which the system takes any length of it.
[[nodiscard]] std::wstring SystemPath(const std::filesystem::path& path);

// What an environment variable holds; empty if that is no absolute path.
[[nodiscard]] std::filesystem::path AbsolutePathFrom(const wchar_t* variable);

// The number of a FileError for an error of the system.
[[nodiscard]] int NumberOfError(unsigned long error);

// The failure that the last call of the system told.
[[nodiscard]] FileError LastFileError();

// Replaces what has the name, except a folder. A file that is replaced leaves its rights to the new
// one; one that is protected from writing is refused. When it returns, the file is on the disk.
void ReplaceWholeFile(const std::filesystem::path& path, const FileWriter& write);

// Fails with EEXIST where something has the name.
void CreateWholeFile(const std::filesystem::path& path, const FileWriter& write);

// The content of a regular file. EINVAL for what is none, EFBIG for more than `largest` bytes.
[[nodiscard]] std::string ReadWholeFile(const std::filesystem::path& path, std::size_t largest);

// The same of any size, part by part. What `sink` throws goes through.
void ReadInParts(const std::filesystem::path& path, const ByteSink& sink);

// A name for a file that somebody else makes, in the user's folder for temporary files, where paths
// are short enough for every program. The file goes with the object; one that is still held then,
// or whose process was ended, is removed like the others that were left.
class TemporaryFile {
 public:
  TemporaryFile();
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace td
