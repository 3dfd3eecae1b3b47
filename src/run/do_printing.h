// One run: from the choice of the format to the finished document.
#pragma once

namespace td {

struct PrintWindow;

// Prints the context's data on this window and may be called again on it. Errors are shown in
// message boxes; an error in the report of a refused printer leaves the call.
void DoPrinting(PrintWindow& window);

// Ends a bill or a stock area: fills the page with empty rows if the format says so, then draws
// band 4 if rows are pending, and the foot if asked for.
void FinishBill(PrintWindow& window, bool withFoot);

}  // namespace td
