// How large texts come out. Each desktop measures them by its own fonts.
#pragma once

#include "page_document/commands.h"

namespace td {

// Height of a line of text in twips, for DocumentHost::LineHeight.
[[nodiscard]] double LineHeight(const TextLine& line);
// Its width in twips, for DocumentHost::LineWidth.
[[nodiscard]] double LineWidth(const TextLine& line);

}  // namespace td
