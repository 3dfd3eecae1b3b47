// What the two head routines share.
#pragma once

#include "items/band.h"

namespace td {

// Draws the items of the head at their fixed places, hidden positions included, and records where
// the band ended.
void DrawHeaderBand(PrintWindow& window, std::int16_t site, void (*drawText)(Band&));

}  // namespace td
