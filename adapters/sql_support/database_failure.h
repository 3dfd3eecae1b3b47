// The failures of the databases.
#pragma once

#include <string>
#include <string_view>

#include "platform/failure.h"

namespace td {

// kDatabaseFailed with a description that leads in and never holds the character 锁.
[[nodiscard]] Failure DatabaseFailure(std::string_view description);

// The failure of a statement that another user's lock is in the way of, with the engine's words:
// its description, and no other, holds 锁.
[[nodiscard]] Failure LockedFailure(std::string_view engineWords);

// Fails on what cannot be one statement, before an engine sees it.
void CheckStatementText(const std::string& sql);

}  // namespace td
