// The failures of the databases.
#pragma once

#include <new>
#include <string>
#include <string_view>

#include "platform/failure.h"

namespace td {

// kDatabaseFailed with a description that leads in and never holds the character 锁.
[[nodiscard]] Failure DatabaseFailure(std::string_view description);

// The failure of a statement that another user's lock is in the way of, with the engine's words:
// its description, and no other, holds 锁.
[[nodiscard]] Failure LockedFailure(std::string_view engineWords);

// A request without any statement, and one with something behind its statement.
[[nodiscard]] Failure NoStatement();
[[nodiscard]] Failure TextBehindStatement();

// Runs `action`; lack of memory becomes a failure like any other.
template <typename Action>
auto WithEnoughMemory(const Action& action) {
  try {
    return action();
  } catch (const std::bad_alloc&) {
    throw Failure(kOutOfMemory, "内存不足，查询的结果太大。");
  }
}

}  // namespace td
