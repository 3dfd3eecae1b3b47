// Messages for the user.
#pragma once

#include "platform/platform.h"
#include "qt/system/document_outcome.h"

namespace td {

// Shows a box, or writes the text as one line to standard error.
class MessageBoxes : public Messages {
 public:
  // With `boxesAllowed` False, every message is a line. The messages of a document are counted in
  // its outcome, if there is one, which outlives this object.
  explicit MessageBoxes(bool boxesAllowed, DocumentOutcome* outcome = nullptr)
      : boxesAllowed_(boxesAllowed), outcome_(outcome) {}

  // The icon is that of the style's second hexadecimal digit: 1 stop, 2 question, 3 warning,
  // 4 information; any other style has none. The box bears the program's name, and lies in front of
  // the thread's active window.
  void ShowBox(const std::string& text, int style) override;

  [[nodiscard]] int Shown() const { return shown_; }

 private:
  bool boxesAllowed_;
  DocumentOutcome* outcome_;
  int shown_ = 0;
};

// Writes a text as one line of UTF-8 to standard error.
void WriteComplaint(const std::string& text);

// Whether the process has a desktop that a user sees: a service has none.
[[nodiscard]] bool HasVisibleDesktop();

// The name of the running program's file, without its ending.
[[nodiscard]] std::string ProgramName();

}  // namespace td
