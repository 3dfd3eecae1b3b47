// Items on their way between formats.
#pragma once

#include <vector>

#include "designer/model/format_document.h"

namespace td::designer {

// Puts items of a format on the desktop's clipboard, with the variables that they name.
void CopyItems(const Format& format, const ItemIds& ids);

[[nodiscard]] bool CanPaste();

// Adds the clipboard's items and the variables that the format lacks, as one step; moved by a
// distance, so that they don't lie upon those that they were copied from. The new items.
ItemIds PasteCopied(FormatDocument& document, double distance);

}  // namespace td::designer
