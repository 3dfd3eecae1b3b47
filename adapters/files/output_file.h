// Where a user wants a document.
#pragma once

#include <string>

#include "files/written_bytes.h"

namespace td {

// What this process has open as its standard output and standard error, as paths. On Windows they
// name no files, and WriteOutput takes them for the same.
inline constexpr const char* kStandardOutput = "/dev/stdout";
inline constexpr const char* kStandardError = "/dev/stderr";

// Writes to a path of the user's choice.
//
// A new file and a regular one appear whole or not at all; an old file's rights stay, and one that
// is protected from writing is refused. A link is followed to its file, also to one that isn't
// there yet. Pipes, devices and sockets receive the bytes as they come, and so does what this
// process has open already (/dev/stdout, /dev/fd/3), whatever it is. A folder is refused with
// EISDIR.
//
// Fails with FileError; what `write` throws goes through.
void WriteOutput(const std::string& path, const FileWriter& write);

// Makes a folder in one that is there; a folder that has the name stays. Fails with FileError:
// ENOTDIR for anything else that has the name.
void MakeOutputFolder(const std::string& path);

// Removes a file that an earlier output has left. False if there is none, if it can't be removed,
// or if it is anything but a regular file: that was put there by somebody else.
bool RemoveOutput(const std::string& path);

}  // namespace td
