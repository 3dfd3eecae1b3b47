// What one row adds to the sums.
#pragma once

#include "run/print_run.h"

namespace td {

// Adds the current row to the page sums and running sums; errors skip single statements.
void AddRowToSums(PrintRun& run);

}  // namespace td
