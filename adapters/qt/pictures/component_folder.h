// Where the component lies on the disk.
#pragma once

#include <string>

namespace td {

// The folder of the shared library or program that holds this code, links resolved, UTF-8, without
// a separator at its end (except for the root folder). Fails with kPathNotFound when the system
// can't tell.
[[nodiscard]] std::string FolderOfLoadedComponent();

}  // namespace td
