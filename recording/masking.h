// A scenario that tells nothing of its bills.
#pragma once

#include "recording/json_values.h"

namespace td::recording {

// The scenario with other values in the data of its print calls: of the same length and the same
// kind, character by character (digits, capital and small letters, Chinese characters), dates as
// dates. Equal values of a column stay equal. It prints the same number of pages, rows and items,
// because these stay:
//   - Null, zero, flags, and which rows belong together (FInterID, the first character of
//     FStockArea)
//   - marker values of FMainQty, and FItemiD, which finds the goods pictures
// A goods picture becomes one byte and the machine's address 192.168.1.10. The format, with the
// labels that it prints, stays as it is.
[[nodiscard]] Json Masked(const Json& scenario);

}  // namespace td::recording
