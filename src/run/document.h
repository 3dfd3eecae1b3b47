// The document of a run, from its opening to its end.
#pragma once

#include "run/print_run.h"

namespace td {

// Passes over whole pages of blank rows, opens the document and draws the first page's bands.
void OpenDocument(PrintRun& run);

// Ends the last bill and the document, releases the toolbar, prints if the caller said so.
void CloseDocument(PrintRun& run);

}  // namespace td
