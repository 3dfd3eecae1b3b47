// The numbers of the members of the program's objects.
#pragma once

#include <cstdint>

#include "interface/binary_interface.h"

namespace td {

// Asks an object for the number of a member. Returns what the object answers.
[[nodiscard]] TdResult FindMemberOf(TdDispatch* object, const TdUnit* name, std::int32_t& id);

}  // namespace td
