// The failures of this database.
#pragma once

#include <string>

#include "platform/failure.h"

struct sqlite3;

namespace td {

// kDatabaseFailed with a description that leads in and never holds the character 锁.
[[nodiscard]] Failure DatabaseFailure(const std::string& description);

// The engine's last failure, in its own words. Only where another user of the database is in the
// way does the description hold 锁.
[[nodiscard]] Failure EngineFailure(sqlite3* engine);

}  // namespace td
