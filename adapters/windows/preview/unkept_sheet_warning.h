// The warning that a user-defined sheet will not come back, as a box.
#pragma once

#include "preview/unkept_sheet.h"

namespace td {

// Says that the next print on this machine begins with another sheet, what helps against it, and
// waits for the answer.
[[nodiscard]] SheetAnswer WarnOfUnkeptSheet(const UnkeptSheet& sheet);

}  // namespace td
