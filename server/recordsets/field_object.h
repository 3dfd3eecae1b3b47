// One column of a record set as an object.
#pragma once

#include <string>

#include "interface/binary_interface.h"
#include "platform/database.h"

namespace td {

// A counted object that answers by name Value, which is that of the record set's current row, and
// Name. Fails as Recordset::Field does when there is no such column.
[[nodiscard]] TdDispatch* NewFieldObject(const RecordsetRef& rows, const std::string& column);

}  // namespace td
