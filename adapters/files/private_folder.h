// Folders for one user alone.
#pragma once

#include <string>

namespace td {

// Makes a folder and what is missing above it, with no rights for others. Empty if it is there
// then, else the folder that couldn't be made, with errno.
[[nodiscard]] std::string MakePrivateFolder(const std::string& path);

}  // namespace td
