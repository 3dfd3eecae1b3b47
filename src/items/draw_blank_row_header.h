#pragma once

namespace td {

struct PrintWindow;

// The head of a run that starts part-way down the form: lines and pictures as usual, no bill data
// on the first page, no caption on any page. Errors are shown and do not reach the caller.
void DrawBlankRowHeader(PrintWindow& window);

}  // namespace td
