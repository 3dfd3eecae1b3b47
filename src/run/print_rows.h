// The walk over the rows. A page holds a fixed number of equally high rows, so rows are counted and
// one vertical offset moves; nothing is measured. The page events change the state inside NewPage.
#pragma once

#include "run/print_run.h"

namespace td {

// Every new bill begins a new page, with its head.
void PrintRowsByBill(PrintRun& run);

// The rows come grouped by stock area; the first character of the area decides where a new page
// begins, and the printer never changes.
void PrintRowsByStockArea(PrintRun& run);

}  // namespace td
