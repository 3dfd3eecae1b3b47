// The toolbar's image list.
#pragma once

#include <QIcon>
#include <string_view>

namespace td {

// The image of a toolbar key, drawn afresh for each size; empty for an unknown one.
[[nodiscard]] QIcon ToolbarIcon(std::string_view key);

}  // namespace td
