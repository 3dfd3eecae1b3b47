// Input that came while a run held the window up.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <variant>

#include "windows/preview/preview_keys.h"

namespace td {

// Keeps a person's keys and clicks until the window can act upon them again.
class HeldInput {
 public:
  // What the window knows of its input.
  struct Window {
    std::function<HWND()> handle;  // null: it has gone
    std::function<std::optional<KeyCommand>(const MSG&)> commandOf;
    std::function<bool(const KeyCommand&)> isEnabled;
    std::function<void(const KeyCommand&)> obey;
  };
  explicit HeldInput(Window window) : window_(std::move(window)) {}

  // Empties the queue of the window's input. Keys and clicks are kept, in their order, and are
  // acted upon when the message loop has control again: a run may still be on the stack. Those for
  // parts that are disabled at this moment are dropped, and so is the wheel, since the picture
  // under it is about to change. The close box works at once.
  void TakePending();

  // True if it has taken a message of the window's, which comes while something is held and waits
  // behind it.
  bool Takes(const MSG& message);

  // The window got this message of its own: acts upon the first input that is held. One at a time:
  // it may open a dialog, before which the others would not have reached the window.
  static constexpr UINT kDeliver = WM_APP + 1;
  void DeliverNext();

 private:
  using Input = std::variant<KeyCommand, MSG>;

  void Sort(const MSG& message);
  void Hold(Input input);

  Window window_;
  std::deque<Input> held_;
};

}  // namespace td
