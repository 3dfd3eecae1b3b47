// Messages for the user, counted and kept, whatever shows them.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/platform.h"
#include "print_calls/document_outcome.h"

namespace td {

enum class MessageMode {
  kAutomatic,      // a message box if there is a window system, otherwise as kStandardError
  kStandardError,  // one line on standard error for each message, whatever display there is
  kCollected,      // nobody sees them: the document's outcome has their texts
};

class KeptMessages : public Messages {
 public:
  // The messages of a document are kept in its outcome, if there is one, which outlives this
  // object.
  explicit KeptMessages(MessageMode mode, DocumentOutcome* outcome = nullptr)
      : mode_(mode), outcome_(outcome) {}

  void PutMode(MessageMode mode) { mode_ = mode; }

  // Tells where a print is, in one line, or nothing: a line on standard error adds it to the text.
  // A box doesn't, since the user of the box sees what is printed.
  void PutPlace(std::function<std::string()> place) { place_ = std::move(place); }

  void ShowBox(const std::string& text, int style) final;

  [[nodiscard]] int Shown() const { return shown_; }

 protected:
  // Whether a box would be seen.
  [[nodiscard]] virtual bool HasDisplay() const = 0;
  // The icon is that of the style's second hexadecimal digit: 1 stop, 2 question, 3 warning,
  // 4 information; any other style has none. The box bears the program's name.
  virtual void ShowInBox(const std::string& text, int style) = 0;

 private:
  MessageMode mode_;
  DocumentOutcome* outcome_;
  std::function<std::string()> place_;
  int shown_ = 0;
};

}  // namespace td
