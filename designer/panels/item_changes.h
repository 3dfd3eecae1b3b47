// Changes that the panel of an item makes beside setting a single column.
#pragma once

#include <string>

#include "designer/model/item_commands.h"

namespace td::designer {

// What the items show: a variable or an image by its name, or with an empty name their fixed text.
// A label that repeated the old name, which kept it off the paper, repeats the new one.
[[nodiscard]] Command ShowField(const Format& format, const ItemIds& ids, const std::string& name);

// The bands 2 to 5 leave out an item with a negative left or top.
[[nodiscard]] bool CanHide(const Item& item);
[[nodiscard]] bool IsHidden(const Item& item);

// Hides items by a negative left, or shows them again; what was hidden here comes back to where it
// was.
[[nodiscard]] Command HideItems(const Format& format, const ItemIds& ids, bool hide);

// Puts the left or top edge of the items at a place of the sheet, twips, on a full first page.
[[nodiscard]] Command PutLeftOnSheet(const Format& format, const ItemIds& ids, double left);
[[nodiscard]] Command PutTopOnSheet(const Format& format, const ItemIds& ids, double top);

}  // namespace td::designer
