// The class QbTdPrinter.Session.
#pragma once

#include "interface/binary_interface.h"

namespace td {

// A new object with one reference.
[[nodiscard]] TdObject* NewSessionObject();

}  // namespace td
