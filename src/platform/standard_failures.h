// The failures that several places raise, each with its number and its words in one place.
#pragma once

#include <string>
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

// Whether the failure is a lock conflict: its description contains 锁.
[[nodiscard]] bool IsLockConflict(const Failure& failure);

// The text with 锁 replaced by its traditional form 鎖: a name or an engine's word in a description
// must not be taken for a lock conflict, or the statement would be tried again without end.
[[nodiscard]] std::string WithoutLockCharacter(std::string text);

}  // namespace td
