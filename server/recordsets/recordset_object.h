// A record set of the component's own as an object of the binary interface.
#pragma once

#include "interface/binary_interface.h"
#include "platform/database.h"

namespace td {

// A counted object that answers by name EOF, Fields(name).Value, MoveNext, MoveFirst, Clone and
// Close, and has the direct interface TdRecordset. It shares `rows`, which must not be empty.
[[nodiscard]] TdDispatch* NewRecordsetObject(RecordsetRef rows);

}  // namespace td
