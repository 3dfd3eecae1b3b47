// Messages for the user.
#pragma once

#include <string>

#include "platform/platform.h"
#include "qt/system/document_outcome.h"

namespace td {

// Shows a box where windows can be shown, otherwise writes the text as one line to standard error.
class MessageBoxes : public Messages {
 public:
  // With `boxesAllowed` False, every message is a line. The messages of a document are counted in
  // its outcome, if there is one, which outlives this object.
  explicit MessageBoxes(bool boxesAllowed, DocumentOutcome* outcome = nullptr)
      : boxesAllowed_(boxesAllowed), outcome_(outcome) {}

  // The icon is that of the style's second hexadecimal digit: 1 stop, 2 question, 3 warning,
  // 4 information; any other style has none. The box bears the program's name.
  void ShowBox(const std::string& text, int style) override;

  [[nodiscard]] int Shown() const { return shown_; }

 private:
  bool boxesAllowed_;
  DocumentOutcome* outcome_;
  int shown_ = 0;
};

}  // namespace td
