// The factories of the classes.
#pragma once

#include "interface/binary_interface.h"
#include "objects/owned.h"

namespace td {

// The factory of a class; empty for an unknown class.
[[nodiscard]] Reference<TdClassFactory> NewClassFactory(const TdGuid& classId);

}  // namespace td
