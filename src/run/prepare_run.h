// The first half of a run.
#pragma once

#include "run/print_run.h"

namespace td {

// Chooses the format, sets paper and printer, reads the layout. False: no format, and the window
// is unloaded.
[[nodiscard]] bool PrepareRun(PrintRun& run);

}  // namespace td
