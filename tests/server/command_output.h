// Programs that read what the component writes.
#pragma once

#include <string>

namespace td {

// What a shell command writes on its standard output.
std::string OutputOf(const std::string& command);

}  // namespace td
