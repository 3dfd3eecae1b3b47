// What ends a bill, or a stock area.
#pragma once

#include "run/print_run.h"

namespace td {

// Fills the page with empty rows if the format says so, then draws band 4 if rows are pending, and
// the foot if asked for.
void FinishBill(PrintWindow& window, bool withFoot);

// What ends the last bill, or the last area, behind the last row.
void FinishLastGroup(PrintRun& run);

// Gives the pages since the last recorded one to the bill in progress.
void RecordBillPages(PrintRun& run);

}  // namespace td
