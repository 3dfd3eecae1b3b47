// Where the running program lies.
#pragma once

#include <filesystem>

namespace td {

[[nodiscard]] std::filesystem::path ProgramFolder();

}  // namespace td
