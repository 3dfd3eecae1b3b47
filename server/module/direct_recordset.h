// Print data that is an object of the program and has the direct interface.
#pragma once

#include "interface/binary_interface.h"
#include "objects/owned.h"
#include "platform/database.h"

namespace td {

[[nodiscard]] RecordsetRef NewDirectRecordset(Reference<TdRecordset> object);

}  // namespace td
