// The file of this module, and how long code stays in memory.
#pragma once

#include <filesystem>

namespace td {

// The path without links, as it was when the module was loaded.
[[nodiscard]] const std::filesystem::path& ModuleFile();

// Keeps the module in memory until the process ends, whatever dlclose is told. Qt and what it loads
// stay from the start: its libraries don't give everything back when they are unloaded.
// Fails with kInvalidCall if the system refuses.
void KeepModuleInMemory();

}  // namespace td
