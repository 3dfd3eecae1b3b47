#include "windows/preview/preview_keys.h"

#include "preview/toolbar_buttons.h"

namespace td {
namespace {

std::optional<KeyCommand> Shared(WPARAM key, bool withControl, bool withShift) {
  switch (key) {
    case VK_NEXT:
      return KeyCommand{KeyAction::kPageForward, {}};
    case VK_PRIOR:
      return KeyCommand{KeyAction::kPageBackward, {}};
    case VK_SPACE:
      return KeyCommand{withShift ? KeyAction::kPageBackward : KeyAction::kPageForward, {}};
    case VK_HOME:
      return KeyCommand{withControl ? KeyAction::kFirstPage : KeyAction::kPageTop, {}};
    case VK_END:
      return KeyCommand{withControl ? KeyAction::kLastPage : KeyAction::kPageEnd, {}};
    case VK_UP:
      return KeyCommand{KeyAction::kLineUp, {}};
    case VK_DOWN:
      return KeyCommand{KeyAction::kLineDown, {}};
    case VK_LEFT:
      return KeyCommand{KeyAction::kLineLeft, {}};
    case VK_RIGHT:
      return KeyCommand{KeyAction::kLineRight, {}};
    default:
      return std::nullopt;
  }
}

std::optional<KeyCommand> WithoutControl(WPARAM key, bool withShift) {
  switch (key) {
    case VK_ESCAPE:
      return KeyCommand{KeyAction::kClose, {}};
    case VK_TAB:
      return KeyCommand{withShift ? KeyAction::kPreviousPart : KeyAction::kNextPart, {}};
    default:
      return std::nullopt;
  }
}

std::optional<KeyCommand> WithControl(WPARAM key, bool withShift) {
  switch (key) {
    case VK_ADD:
    case VK_OEM_PLUS:
      return KeyCommand{KeyAction::kZoomIn, {}};
    case VK_SUBTRACT:
    case VK_OEM_MINUS:
      return KeyCommand{KeyAction::kZoomOut, {}};
    case 'G':
      return KeyCommand{KeyAction::kGoToPage, {}};
    default:
      break;
  }
  for (const ToolbarButton& button : kToolbarButtons) {
    const Shortcut& shortcut = button.shortcut;
    if (shortcut.key != 0 && key == static_cast<WPARAM>(shortcut.key) &&
        withShift == shortcut.withShift) {
      return KeyCommand{KeyAction::kPress, button.key};
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<KeyCommand> CommandOf(const PressedKey& pressed) {
  const auto& [key, withControl, withShift] = pressed;
  if (const auto shared = Shared(key, withControl, withShift)) return shared;
  return withControl ? WithControl(key, withShift) : WithoutControl(key, withShift);
}

}  // namespace td
