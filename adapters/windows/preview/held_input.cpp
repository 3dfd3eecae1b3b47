#include "windows/preview/held_input.h"

namespace td {
namespace {

bool IsClick(UINT message) {
  return message >= WM_LBUTTONDOWN && message <= WM_MBUTTONDBLCLK;
}

// Those with Alt are the system's: Alt+F4 is the close box.
bool IsKey(UINT message) {
  return message >= WM_KEYFIRST && message <= WM_DEADCHAR;
}

bool IsMouse(UINT message) {
  return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
}

}  // namespace

void HeldInput::TakePending() {
  constexpr int kMostMessages = 1000;  // one message brings the next, and some never end
  MSG message{};
  for (int i = 0; i < kMostMessages && window_.handle() != nullptr; ++i) {
    const HWND window = window_.handle();
    const bool isFound =
        PeekMessageW(&message, window, WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK, PM_REMOVE) != FALSE ||
        PeekMessageW(&message, window, WM_KEYFIRST, WM_MOUSELAST, PM_REMOVE) != FALSE ||
        PeekMessageW(&message, window, WM_CLOSE, WM_CLOSE, PM_REMOVE) != FALSE;
    if (!isFound) return;
    if (message.message == WM_QUIT) {  // comes whatever is asked for; it is for the message loops
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Sort(message);
  }
}

// A click on a disabled part comes to the window below it, where it does nothing. Esc is meant for
// a disabled button, though it closes the window after a run that has failed.
void HeldInput::Sort(const MSG& message) {
  if (IsClick(message.message)) {
    if (IsWindowEnabled(message.hwnd) != FALSE) Hold(message);
  } else if (IsKey(message.message)) {
    const auto command = window_.commandOf(message);
    if (command && command->action != KeyAction::kClose && window_.isEnabled(*command)) {
      Hold(*command);
    }
  } else if (!IsMouse(message.message)) {
    DispatchMessageW(&message);
  }
}

void HeldInput::Hold(Input input) {
  if (held_.empty()) PostMessageW(window_.handle(), kDeliver, 0, 0);
  held_.push_back(std::move(input));
}

bool HeldInput::Takes(const MSG& message) {
  if (held_.empty()) return false;
  if (IsClick(message.message)) {
    Hold(message);
    return true;
  }
  if (message.message != WM_KEYDOWN) return false;
  if (const auto command = window_.commandOf(message)) Hold(*command);
  return true;
}

void HeldInput::DeliverNext() {
  if (IsWindowEnabled(window_.handle()) == FALSE) held_.clear();
  if (held_.empty()) return;
  const Input next = std::move(held_.front());
  held_.pop_front();
  if (!held_.empty()) PostMessageW(window_.handle(), kDeliver, 0, 0);
  if (const auto* command = std::get_if<KeyCommand>(&next)) {
    window_.obey(*command);
  } else {
    DispatchMessageW(&std::get<MSG>(next));
  }
}

}  // namespace td
