// The toolbar's image list.
#pragma once

#include <QIcon>
#include <string_view>

namespace td {

inline constexpr int kToolbarIconSize = 17;  // pixels at 100 percent

// The image of a toolbar key (previouspage, nextpage, zoom, pageset, adjuct, print, exit, export),
// drawn afresh for each size, so that it is sharp on every screen. Empty for other keys.
[[nodiscard]] QIcon ToolbarIcon(std::string_view key);

}  // namespace td
