// Arrays of bytes, in the memory that a host expects them in. TdClearVariant, which frees them,
// stands beside the one that makes them.
#pragma once

#include <cstdint>

#include "interface/binary_interface.h"

namespace td {

// Null if memory runs out.
[[nodiscard]] TdArray* MakeArray(const void* bytes, std::uint32_t count);

}  // namespace td
