// Print data that is an object of the program.
#pragma once

#include "interface/binary_interface.h"
#include "objects/owned.h"
#include "platform/database.h"

namespace td {

// The object as a record set, through its interface TdRecordset if it has that, by name otherwise;
// empty for an empty reference. What the object fails with keeps its number and its description. A
// member that it hasn't got fails with number 438.
[[nodiscard]] RecordsetRef RecordsetOf(Reference<TdDispatch> object);

}  // namespace td
