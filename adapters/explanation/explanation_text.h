// An explanation for people and for programs.
#pragma once

#include <string>

#include "explanation/explanation.h"
#include "explanation/language.h"

namespace td {

// Lines for an administrator: what was printed, each item that is not on the paper as the format
// says and why, marker rows, sums, failures. Each line ends in a line feed.
[[nodiscard]] std::string ExplanationText(const Explanation& explanation, Language language);

// All of it as one JSON object, without a line feed. Text that is not UTF-8 is repaired.
[[nodiscard]] std::string ExplanationJson(const Explanation& explanation);

// "the data have no column FCustName": the reason of an item, as a part of a sentence.
[[nodiscard]] std::string ReasonText(const ExplainedItem& item, const Reason& reason,
                                     Language language);

}  // namespace td
