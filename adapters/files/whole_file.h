// Files that appear whole or not at all: a process that is killed in the middle leaves the old
// file, or none. The bytes go into a file without a name, which gets its name when all are there;
// where the file system has no such files, into one with a random name.
#pragma once

#include <sys/stat.h>

#include <string>

#include "files/descriptor.h"
#include "files/written_bytes.h"

namespace td {

// Whom a new file belongs to and who may use it.
struct FileRights {
  mode_t mode = 0666;                 // less what the process's umask takes away
  const struct stat* like = nullptr;  // instead, the rights and the owner of another file
};

// Both put a file into an open folder, under a name without a separator. What `write` throws leaves
// the folder as it was. Fail with FileError.

// Replaces what has the name, even a link, except a folder. When it returns, the file is on the
// disk and survives a power cut.
void ReplaceFile(const Descriptor& folder, const std::string& name, const FileRights& rights,
                 const FileWriter& write);

// Fails with EEXIST where something has the name. The system writes the file to the disk when it
// likes.
void CreateNewFile(const Descriptor& folder, const std::string& name, const FileRights& rights,
                   const FileWriter& write);

}  // namespace td
