// What the keys mean in the preview.
#pragma once

#include <optional>
#include <string_view>

#include "windows/api/windows_api.h"

namespace td {

enum class KeyAction {
  kPageForward,
  kPageBackward,
  kPageTop,
  kPageEnd,
  kFirstPage,
  kLastPage,
  kLineUp,
  kLineDown,
  kLineLeft,
  kLineRight,
  kZoomIn,
  kZoomOut,
  kGoToPage,
  kClose,
  kNextPart,
  kPreviousPart,
  kPress,
};

struct KeyCommand {
  KeyAction action;
  std::string_view button;  // the key of the toolbar's button for kPress
};

struct PressedKey {
  WPARAM key = 0;  // of the system's numbers
  bool withControl = false;
  bool withShift = false;
};

// Nothing for a key without a meaning.
[[nodiscard]] std::optional<KeyCommand> CommandOf(const PressedKey& pressed);

}  // namespace td
