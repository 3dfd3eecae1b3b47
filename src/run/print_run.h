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

  const WindowKind& kind = window.kind;
  RunState& state = window.state;
  PrintSurface& vp = window.vp;
  PrintContext& context = Context();

  // NoTax and Tax of the last row whose price and quantity could be read.
  double NoTax = 0;
  double Tax = 0;
  std::int16_t blankRowsDue = 0;  // on the first page, when the document opens
};

// Chooses the format, sets paper and printer, reads the layout. False: no format, and the window
// is unloaded.
[[nodiscard]] bool PrepareRun(PrintRun& run);

// Passes over whole pages of blank rows, opens the document and draws the first page's bands.
void OpenDocument(PrintRun& run);

// Walk the rows. A new bill, or a new stock area, begins a new page.
void PrintRowsByBill(PrintRun& run);
void PrintRowsByStockArea(PrintRun& run);

// Draws the current row and moves to the next; goes to a new page if this one is full and more rows
// follow.
void PlaceRow(PrintRun& run);

// Moves the parked clone forward to the bill of the current row.
void MoveCloneToBill(PrintRun& run);

// Add the current row to the page sums and running sums; errors skip single statements. The plain
// run computes the tax from price and quantity, the stock-area run takes it from its column.
void AddRowToSums(PrintRun& run);
void AddStockAreaRowToSums(PrintRun& run);

// What ends the last bill, or the last area, behind the last row.
void FinishLastBill(PrintRun& run);
void FinishLastStockArea(PrintRun& run);

// Gives the pages since the last recorded one to the bill in progress.
void RecordBillPages(PrintRun& run);

// Ends the last bill and the document, releases the toolbar, prints if the caller said so.
void CloseDocument(PrintRun& run);

}  // namespace td
