#pragma once

#include <string_view>

#include "store/template_item.h"

namespace td {

struct PrintWindow;

// Draws the items of one band, any but the head, onto the current page, each at its stored position
// plus the offsets of the run. `Filter` is added to the item query. Errors are shown and do not
// reach the caller.
void DrawItems(PrintWindow& window, ItemSite FSite, std::string_view Filter = {});

}  // namespace td
