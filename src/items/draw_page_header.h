#pragma once

namespace td {

struct PrintWindow;

// Draws the head of the page: items stand at their stored position plus the format's adjustment,
// whatever the row or page, and read the current row of the print data. Errors are shown and do not
// reach the caller.
void DrawPageHeader(PrintWindow& window);

// The head of a run that starts part-way down the form: lines and pictures as usual, no bill data
// on the first page, no caption on any page. Errors are shown and do not reach the caller.
void DrawBlankRowHeader(PrintWindow& window);

}  // namespace td
