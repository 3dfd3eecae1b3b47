// What a driver says of a failure, and what it means.
#pragma once

#include <sql.h>

#include <string>

#include "odbc/engine_dialect.h"
#include "platform/failure.h"

namespace td {

struct OdbcDiagnosis {
  std::string state;  // five characters
  SQLINTEGER native = 0;
  std::string words;  // the engine's, without the names of the drivers that they passed
};

// The first diagnostic record of a handle whose last call failed.
[[nodiscard]] OdbcDiagnosis Diagnose(SQLSMALLINT kind, SQLHANDLE handle);

// Whether another user's lock was in the way: a lock wait that ended, a deadlock, a serialization
// failure. Trying again succeeds when the other user is done.
[[nodiscard]] bool IsLockConflict(const OdbcDiagnosis& diagnosis, Engine engine);

// Whether the connection is gone, with the server or without.
[[nodiscard]] bool IsConnectionLost(const OdbcDiagnosis& diagnosis, Engine engine);

[[nodiscard]] Failure StatementFailure(const OdbcDiagnosis& diagnosis, Engine engine);

}  // namespace td
