// The engine's failures.
#pragma once

#include "platform/failure.h"

struct sqlite3;

namespace td {

// The engine's last failure, in its own words.
[[nodiscard]] Failure EngineFailure(sqlite3* engine);

}  // namespace td
