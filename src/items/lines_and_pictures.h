// Items that are drawn alike in all bands.
#pragma once

#include "items/band.h"

namespace td {

// A ruled line: horizontal if it is wider than high, else vertical. There is no rectangle.
void DrawLineItem(Band& band);

// A picture file in its natural size, whatever the item's width and height.
void DrawPictureItem(Band& band);

}  // namespace td
