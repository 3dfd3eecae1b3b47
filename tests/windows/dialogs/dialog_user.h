// A person before the component's dialogs, on a thread of its own, while the thread of the dialog
// runs its loop. Keys and clicks are messages in the dialog's own queue: what the display or other
// programs do meanwhile neither takes them away nor comes between them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dialogs/dialog_contents.h"
#include "windows/api/windows_api.h"

namespace td {

// False if it does not come true within twenty seconds.
bool WaitFor(const std::function<bool()>& condition);

// The visible top-level windows of a thread, the uppermost first.
[[nodiscard]] std::vector<HWND> ShownWindows(DWORD thread);

class DialogUser {
 public:
  DialogUser(HWND dialog, const DialogContents& contents)
      : dialog_(dialog), contents_(contents), thread_(GetWindowThreadProcessId(dialog, nullptr)) {}

  [[nodiscard]] HWND Window() const { return dialog_; }
  [[nodiscard]] HWND Control(std::string_view name, int option = 0) const;

  // Each fails the test if what is to follow does not follow.
  void Click(std::string_view name, int option = 0);
  // A click into the box, and the text in the place of the former one.
  void Type(std::string_view box, const std::string& text);
  // The list opened, and the entry chosen in it with the keyboard.
  void Choose(std::string_view list, const std::string& entry);
  // The same with the mouse alone.
  void ClickEntry(std::string_view list, int index);
  // Opens a list by its key.
  void OpenList(std::string_view list);
  // Puts the focus there without a click.
  void Focus(std::string_view name, int option = 0);
  void Press(WPARAM key);
  void PressWithAlt(WPARAM key);
  // Shift and Tab, until the focus has gone.
  void PressShiftTab();
  void TurnWheelOver(std::string_view name);

  [[nodiscard]] std::string Text(std::string_view box) const;
  [[nodiscard]] std::vector<std::string> Entries(std::string_view list) const;
  [[nodiscard]] int Selected(std::string_view list) const;
  [[nodiscard]] std::string SelectedText(std::string_view list) const;
  [[nodiscard]] bool IsOpened(std::string_view list) const;
  [[nodiscard]] bool IsChecked(std::string_view name, int option = 0) const;
  [[nodiscard]] HWND FocusedControl() const;
  [[nodiscard]] bool IsShown() const { return IsWindowVisible(dialog_) != FALSE; }
  [[nodiscard]] bool WaitUntilClosed() const {
    return WaitFor([this] { return !IsShown(); });
  }

 private:
  // The dialog has the focus, and no box stands before it.
  void WaitUntilReady() const;
  void PostKey(UINT down, UINT up, WPARAM key, LPARAM context) const;
  void ClickAt(HWND control, POINT inside) const;

  HWND dialog_;
  const DialogContents& contents_;
  DWORD thread_;
};

}  // namespace td
