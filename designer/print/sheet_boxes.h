// Where the items of a format are seen on a page.
#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include "designer/model/sheet_layout.h"
#include "designer/print/sheet_print.h"

namespace td::designer {

// Of each item that the page has: the box of a text or a line at the place where the run has drawn
// it, a picture as large as it is drawn. What the run has drawn nothing of stands where it would.
[[nodiscard]] std::unordered_map<ItemId, Box> BoxesOn(const SheetPicture& picture, std::size_t page,
                                                      const Format& format,
                                                      const SheetLayout& layout, bool onlyValues);

// Of everything that the page shows its own box, row by row; the frames of a form.
[[nodiscard]] std::vector<Box> FramesOn(const SheetPage& page, const Format& format,
                                        const SheetLayout& layout);

// For hit tests: an item that isn't on the page lies nowhere near it.
[[nodiscard]] std::optional<Box> BoxOrNowhere(const std::unordered_map<ItemId, Box>& boxes,
                                              const Item& item);

}  // namespace td::designer
