// The modules of the process, and their files.
#pragma once

#include <filesystem>

#include "windows/api/windows_api.h"

namespace td {

// The module that this code is linked into: the DLL or the program.
[[nodiscard]] HINSTANCE OwnModule();

// Where a module was loaded from; null is the program. Empty if the system doesn't tell.
[[nodiscard]] std::filesystem::path FileOf(HMODULE module);

}  // namespace td
