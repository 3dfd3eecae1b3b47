// What is said in which words.
#pragma once

#include <span>
#include <string_view>

namespace td::designer {

struct Words {
  std::string_view english;
  std::string_view chinese;
};

// Of the bands and the panels around the sheet; and of the window: menus, questions, sheet and
// scan.
[[nodiscard]] std::span<const Words> PanelWords();
[[nodiscard]] std::span<const Words> WindowWords();

}  // namespace td::designer
