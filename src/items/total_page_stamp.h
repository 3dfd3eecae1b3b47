// The total page count: unknown while a page is drawn, so an item that shows it only leaves its
// place, and the finished pages are reopened to write the number there.
#pragma once

#include "items/band.h"

namespace td {

// Keeps the place of the item in the slot of its band and page; nothing is drawn.
void StoreTotalPageStamp(Band& band);

// Writes the count onto each page of the finished document, if a place was stored for it. Forgives
// nothing: a failure reaches the caller.
void StampTotalPages(PrintWindow& window);

}  // namespace td
