#pragma once

#include <cstdint>
#include <string_view>

namespace td {

struct PrintWindow;

// Draws the items of one band onto the current page, each at its stored position plus the offsets
// of the run. `FSite` is the band: 2 column head, 3 detail row, 4 band after the rows, 5 foot.
// `Filter` is added to the item query and may be empty. Errors are shown and do not reach the
// caller.
void DrawItems(PrintWindow& window, std::int16_t FSite, std::string_view Filter);

}  // namespace td
