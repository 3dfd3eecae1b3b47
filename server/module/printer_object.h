// The class QbTdPrinter.Printer.
#pragma once

#include "interface/binary_interface.h"

namespace td {

// A new object with one reference.
[[nodiscard]] TdObject* NewPrinterObject();

}  // namespace td
