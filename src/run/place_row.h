// What the rows of both walks have in common.
#pragma once

#include "run/print_run.h"

namespace td {

// Draws the current row and moves to the next; goes to a new page if this one is full and more rows
// follow.
void PlaceRow(PrintRun& run);

// Moves the parked clone forward to the bill of the current row.
void MoveCloneToBill(PrintRun& run);

}  // namespace td
