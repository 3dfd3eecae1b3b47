// The class QbTdPrinter.TDSet.
#pragma once

#include "interface/binary_interface.h"

namespace td {

// A new object with one reference.
[[nodiscard]] TdObject* NewSettingsObject();

}  // namespace td
