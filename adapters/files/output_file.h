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

}  // namespace td
