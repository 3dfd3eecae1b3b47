// The machine's local time.
#pragma once

#include <ctime>

namespace td {

// The parts of a moment in local time.
[[nodiscard]] std::tm LocalParts(std::time_t time);

}  // namespace td
