// The pictures of the toolbar.
#pragma once

#include <QIcon>
#include <string_view>

namespace td::designer {

// By the name of the action; empty for one that has only words.
[[nodiscard]] QIcon ActionIcon(std::string_view name);

}  // namespace td::designer
