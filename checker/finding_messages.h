// The words of each kind of finding, in one table.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "checker/finding.h"
#include "explanation/language.h"

namespace td::checker {

// Three sentences: what is wrong, what comes of it on paper, how to mend it.
struct FindingWords {
  std::string_view wrong;
  std::string_view effect;
  std::string_view mend;
};

struct FindingMessage {
  FindingKind kind;
  std::string_view id;  // stable: programs know the kind by it
  Severity severity;
  FindingWords chinese;
  FindingWords english;
};

// All kinds, in the order of the enumeration.
[[nodiscard]] std::span<const FindingMessage> FindingMessages();
[[nodiscard]] const FindingMessage& MessageOf(FindingKind kind);

// A finding in words.
struct FindingText {
  std::string wrong;
  std::string effect;
  std::string mend;
};
[[nodiscard]] FindingText TextOf(const Finding& finding, Language language);

// Puts arguments into words: {0} is the first one, and <0?with|without> is `with` if the first one
// is not empty and `without` if it is. An argument that is not there counts as empty.
[[nodiscard]] std::string FillIn(std::string_view words, std::span<const std::string> arguments);

}  // namespace td::checker
