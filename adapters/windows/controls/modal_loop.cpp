#include "windows/controls/modal_loop.h"

// Needs the types of the system.
#include <imm.h>

#include <array>
#include <string_view>

namespace td {
namespace {

bool IsUsable(HWND window) {
  return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE;
}

BOOL CALLBACK AddIfUsable(HWND window, LPARAM found) {
  if (IsUsable(window)) reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
  return TRUE;
}

std::vector<HWND> UsableWindowsOfThread() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), AddIfUsable, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::wstring_view ClassOf(HWND window, std::array<wchar_t, 64>& room) {
  const int length = GetClassNameW(window, room.data(), static_cast<int>(room.size()));
  return {room.data(), static_cast<std::size_t>(length)};
}

bool HasFocus(HWND window) {
  const HWND focus = GetFocus();
  return focus == window || IsChild(window, focus) != FALSE;
}

}  // namespace

HWND OwnerWindow() {
  const HWND active = GetActiveWindow();
  if (active != nullptr && IsUsable(active)) return active;
  const std::vector<HWND> usable = UsableWindowsOfThread();
  return usable.empty() ? nullptr : usable.front();
}

bool IsStrayWheel(const MSG& message) {
  if (message.message != WM_MOUSEWHEEL) return false;
  std::array<wchar_t, 64> room{};
  const std::wstring_view name = ClassOf(message.hwnd, room);
  return (name == L"ComboBox" || name == L"msctls_updown32" || name == L"Edit") &&
         !HasFocus(message.hwnd);
}

void KeepInputMethodFrom(HWND control) {
  ImmAssociateContext(control, nullptr);
}

ModalLoop::ModalLoop(HWND window) : window_(window) {
  for (const HWND other : UsableWindowsOfThread()) {
    if (other == window) continue;
    EnableWindow(other, FALSE);
    disabled_.push_back(other);
  }
}

void ModalLoop::Run(const std::function<bool(MSG&)>& takes) {
  while (!hasEnded_ && IsWindow(window_) != FALSE) {
    MSG message{};
    if (GetMessageW(&message, nullptr, 0, 0) == 0) {
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    if (IsStrayWheel(message)) continue;
    if (takes ? takes(message) : IsDialogMessageW(window_, &message) != FALSE) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  End();
}

void ModalLoop::End() {
  if (hasEnded_) return;
  hasEnded_ = true;
  for (const HWND other : disabled_) EnableWindow(other, TRUE);
  if (HasFocus(window_) && IsWindow(formerFocus_) != FALSE) SetFocus(formerFocus_);
}

}  // namespace td
