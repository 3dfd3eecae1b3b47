// The character by which a description says "locked by another user, try again".
#pragma once

#include <string>

#include "platform/failure.h"

namespace td {

// Whether the failure is a lock conflict: its description contains 锁.
[[nodiscard]] bool IsLockConflict(const Failure& failure);

// The text with 锁 replaced by its traditional form 鎖: a name or an engine's word in a description
// must not be taken for a lock conflict, or the statement would be tried again without end.
[[nodiscard]] std::string WithoutLockCharacter(std::string text);

}  // namespace td
