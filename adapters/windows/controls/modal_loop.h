// The message loop of a modal window inside the message loop of any program.
#pragma once

#include <functional>
#include <vector>

#include "windows/api/windows_api.h"

namespace td {

// The window that a modal one made now is to stand before: the thread's active one, else its
// uppermost one that a user sees and can use. Nothing in a program without windows.
[[nodiscard]] HWND OwnerWindow();

// From its beginning to its end the other windows of the thread take no input.
class ModalLoop {
 public:
  // The window may still be hidden.
  explicit ModalLoop(HWND window);
  ~ModalLoop() { End(); }
  ModalLoop(const ModalLoop&) = delete;
  ModalLoop& operator=(const ModalLoop&) = delete;

  // Delivers messages until End was called or the window is gone, or the program quits: who runs
  // the loop outside of this one then sees WM_QUIT too. `takes`, if there is one, sees each message
  // first and tells whether it has dealt with it; else Tab, Enter, Escape and the access keys do
  // what they do in a dialog.
  void Run(const std::function<bool(MSG&)>& takes = {});

  // Gives the other windows their input back. To be called before the window is hidden: the system
  // would else look for a window of another program to activate. More than once is no error.
  void End();

 private:
  HWND window_;
  HWND formerFocus_ = GetFocus();
  std::vector<HWND> disabled_;
  bool hasEnded_ = false;
};

// The wheel over a list or a number that has not the focus: who scrolls over a window must not
// change what is under the pointer. ModalLoop lets such messages fall.
[[nodiscard]] bool IsStrayWheel(const MSG& message);

// Keys come to the control as they are, though the user's input method is set to Chinese: for
// numbers, whose point it would make a full stop.
void KeepInputMethodFrom(HWND control);

}  // namespace td
