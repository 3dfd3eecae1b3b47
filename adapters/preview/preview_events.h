// What a preview window calls back.
#pragma once

#include <functional>
#include <string_view>

namespace td {

// No call leaves an exception behind.
struct PreviewEvents {
  std::function<void()> activated;  // it has got the focus, and has been drawn
  std::function<void(std::string_view key)> buttonPressed;
  std::function<void()> closed;
};

}  // namespace td
