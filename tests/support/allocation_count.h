// How often the process allocates. A program that links allocation_count.cpp counts.
#pragma once

namespace td {

// By operator new, so far.
[[nodiscard]] long AllocationCount();

}  // namespace td
