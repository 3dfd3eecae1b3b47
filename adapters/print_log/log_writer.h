// Appends to the print log.
#pragma once

#include <string>
#include <string_view>

namespace td {

// Adds a line, its end included, to a file, which is made for the user alone if it isn't there.
// Lines of several processes don't mix: each is one write at the end of the file under a lock,
// which a process that hangs doesn't keep others from for more than seconds. What a process that
// was killed has left of a line is ended first.
//
// The file is opened by its name for each line: one that is moved away is left alone from then on.
// Fails with FileError: EINVAL for what is no regular file.
void AppendLine(const std::string& path, std::string_view line);

}  // namespace td
