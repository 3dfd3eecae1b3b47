// Items that are drawn alike in all bands.
#pragma once

#include "items/band.h"

namespace td {

// How thick the line of an item is, twips; Null is the thinnest.
[[nodiscard]] double PenWidthOf(const Value& borderWidth);

// Which way a line item runs: to the right if it is wider than high, else down.
[[nodiscard]] bool RunsToTheRight(const Value& width, const Value& height);

// A ruled line: horizontal if it is wider than high, else vertical. There is no rectangle.
void DrawLineItem(Band& band);

// A picture file in its natural size, whatever the item's width and height.
void DrawPictureItem(Band& band);

}  // namespace td
