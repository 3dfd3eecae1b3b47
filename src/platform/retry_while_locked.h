// Waiting for other users of a database.
#pragma once

#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td {

// What `operation` returns, which is tried again, as a run does it, for as long as it fails because
// of a lock. Other failures leave the call.
template <typename Operation>
auto RetryWhileLocked(Operation&& operation) {
  for (;;) {
    try {
      return operation();
    } catch (const Failure& failure) {
      if (!IsLockConflict(failure)) throw;
    }
  }
}

}  // namespace td
