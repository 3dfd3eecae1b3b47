// What printing on this desktop asks of its printing system besides print_calls/printers.h.
#pragma once

#include <optional>
#include <string>

#include "print_calls/printers.h"

namespace td {

// Fails with kDeviceIo on a machine without a printing system; on such a one nothing is found.
void RequirePrintingSystem();

// The printing system's own name of the sheet that a printer has for a size (IsSameSheet). Nothing
// if it has no such sheet or can't be asked.
[[nodiscard]] std::optional<std::string> SheetName(const std::string& printer,
                                                   const PaperExtent& extent);

}  // namespace td
