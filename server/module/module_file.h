// The file of this module.
#pragma once

#include <filesystem>

namespace td {

// The path without links, as it was when the module was loaded.
[[nodiscard]] const std::filesystem::path& ModuleFile();

// Keeps the module in memory until the process ends, whatever dlclose is told.
// Fails with kInvalidCall if the system refuses.
void KeepModuleInMemory();

}  // namespace td
