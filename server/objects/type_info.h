// What languages that bind early are told of an interface.
#pragma once

#include <cstdint>

#include "interface/binary_interface.h"

namespace td {

// How many type infos there are of an interface: 0 or 1.
[[nodiscard]] std::uint32_t TypeInfoCountOf(const TdGuid& interfaceId);

// Gives the type info, counted; TD_NOT_IMPLEMENTED, and null, where there is none.
TdResult TypeInfoOf(const TdGuid& interfaceId, std::uint32_t index, void** info);

}  // namespace td
