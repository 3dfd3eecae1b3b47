// Which items lie under the mouse. Lengths are twips on the sheet.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "designer/model/format.h"
#include "designer/model/sheet_layout.h"

namespace td::designer {

// What a caller knows better than the model: the natural size of a picture file, or the reach of a
// text that runs over its box. Nothing: the box of DrawnBox.
using BoxOfItem = std::function<std::optional<Box>(const Item& item)>;

struct HitOptions {
  double tolerance = 0;      // around each item: a line is thin
  bool onlyValues = false;   // the view of a pre-printed form hides the rest
  bool inAllRows = false;    // also by the ghosts of a row's items
  BoxOfItem boxOfItem = {};  // may be empty
};

// The items under a point, the one that is drawn last first: later items of a band lie over earlier
// ones, and the bands are drawn in their order.
[[nodiscard]] std::vector<ItemId> ItemsAt(const SheetLayout& layout, const Format& format,
                                          Point point, const HitOptions& options = {});

// The items that lie whole in an area, or, with `touching`, in part, in the order of the format.
[[nodiscard]] std::vector<ItemId> ItemsIn(const SheetLayout& layout, const Format& format,
                                          const Box& area, bool touching,
                                          const HitOptions& options = {});

// The smallest box around the boxes of some items; nothing without any.
[[nodiscard]] std::optional<Box> BoxAround(const SheetLayout& layout, const Format& format,
                                           const std::vector<ItemId>& ids);

}  // namespace td::designer
