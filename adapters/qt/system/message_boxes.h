// Messages for the user.
#pragma once

#include "print_calls/kept_messages.h"

namespace td {

class MessageBoxes : public KeptMessages {
 public:
  using KeptMessages::KeptMessages;

 protected:
  [[nodiscard]] bool HasDisplay() const override;
  void ShowInBox(const std::string& text, int style) override;
};

}  // namespace td
