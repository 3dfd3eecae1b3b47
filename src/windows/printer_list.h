// The list of printers that both settings dialogs offer.
#pragma once

#include "platform/control_names.h"
#include "platform/dialog.h"
#include "policy/error_policy.h"

namespace td {

inline constexpr int kDefaultPrinterIndex = 0;
inline constexpr int kSeparatorIndex = 1;
inline constexpr int kFirstPrinterIndex = 2;

// The system default, a separator line, then the installed printers in the surface's order.
void FillPrinterList(Dialog& dialog, const Guard& guard);

}  // namespace td
