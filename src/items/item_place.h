// Where an item stands on the page, in twips. Each operation fails on Null and on text that is no
// number.
#pragma once

#include "items/band.h"

namespace td {

[[nodiscard]] double ItemLeft(Band& band);
[[nodiscard]] double ItemTop(Band& band);       // with the row offsets if the band rides on rows
[[nodiscard]] double FixedItemTop(Band& band);  // without them

// Where a line item ends.
[[nodiscard]] double LineRight(Band& band);
[[nodiscard]] double LineBottom(Band& band);

}  // namespace td
