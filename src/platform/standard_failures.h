// The failures that several places raise, each with its number and its words in one place.
#pragma once

#include <string_view>

#include "platform/failure.h"

namespace td {

[[nodiscard]] Failure InvalidCallFailure();     // kInvalidCall
[[nodiscard]] Failure OverflowFailure();        // kOverflow
[[nodiscard]] Failure DivisionByZeroFailure();  // kDivisionByZero
[[nodiscard]] Failure MismatchFailure();        // kTypeMismatch
[[nodiscard]] Failure NullFailure();            // kInvalidUseOfNull
[[nodiscard]] Failure NoCurrentRowFailure();    // kNoCurrentRow
[[nodiscard]] Failure ClosedFailure();          // kObjectClosed

// kWrongThread, and kInvalidCall: a call that may not begin.
[[nodiscard]] Failure WrongThreadFailure();
[[nodiscard]] Failure RequestRunsFailure();

// kNoSuchColumn. The description names the column if it is known.
[[nodiscard]] Failure NoSuchColumnFailure(std::string_view column = {});

}  // namespace td
