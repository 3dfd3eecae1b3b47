// One run: from the choice of the format to the finished document.
#pragma once

namespace td {

struct PrintWindow;

// Prints the request's data on this window and may be called again on it. Errors are shown in
// message boxes; an error in the report of a refused printer leaves the call.
void DoPrinting(PrintWindow& window);

}  // namespace td
