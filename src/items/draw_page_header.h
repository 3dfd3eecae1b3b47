#pragma once

namespace td {

struct PrintWindow;

// Draws the head of the page: items stand at their stored position plus the format's adjustment,
// whatever the row or page, and read the current row of the print data. Errors are shown and do not
// reach the caller.
void DrawPageHeader(PrintWindow& window);

}  // namespace td
