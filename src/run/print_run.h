// What the parts of one execution of DoPrinting hand to each other.
#pragma once

#include <cstdint>

#include "service/print_context.h"
#include "store/error_policy.h"
#include "store/query.h"
#include "windows/print_window.h"

namespace td {

struct PrintRun {
  PrintWindow& window;
  const Guard& guard;
  Query& paper;  // the machine's paper row; the report of a refused printer reads it, too

  RunState& state = window.state;
  PrintSurface& vp = window.vp;
  PrintContext& context = Context();

  // NoTax and Tax of the last row whose price and quantity could be read.
  double NoTax = 0;
  double Tax = 0;
  std::int16_t rem = 0;  // blank rows that are still due when the document opens
};

// Chooses the format, sets paper and printer, reads the layout. False: no format, and the window
// is unloaded.
[[nodiscard]] bool PrepareRun(PrintRun& run);

// Passes over whole pages of blank rows, opens the document and draws the first page's bands.
void OpenDocument(PrintRun& run);

// Walks the rows and breaks pages.
void PrintRows(PrintRun& run);

// Adds the current row to the page sums and running sums; errors skip single statements.
void AddRowToSums(PrintRun& run);

// Gives the pages since the last recorded one to the bill in progress.
void RecordBillPages(PrintRun& run);

// Ends the last bill and the document, releases the toolbar, prints if the caller said so.
void CloseDocument(PrintRun& run);

}  // namespace td
