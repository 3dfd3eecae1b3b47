// Messages for the user.
#pragma once

#include <string>

#include "print_calls/kept_messages.h"

namespace td {

// A box lies in front of the thread's active window, and none of its windows takes input meanwhile.
class MessageBoxes : public KeptMessages {
 public:
  using KeptMessages::KeptMessages;

 protected:
  [[nodiscard]] bool HasDisplay() const override;
  void ShowInBox(const std::string& text, int style) override;
};

// Whether the process has a desktop that a user sees: a service has none.
[[nodiscard]] bool HasVisibleDesktop();

// The name of the running program's file, without its ending.
[[nodiscard]] std::string ProgramName();

}  // namespace td
