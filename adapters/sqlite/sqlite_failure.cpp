#include "sqlite/sqlite_failure.h"

#include <sqlite3.h>

#include "sql_support/database_failure.h"

namespace td {
namespace {

// Only what passes when the other user is done: a retry of anything else would never end.
bool IsLockConflict(int code) {
  const int primary = code & 0xFF;
  return primary == SQLITE_BUSY || primary == SQLITE_LOCKED || primary == SQLITE_PROTOCOL;
}

}  // namespace

Failure EngineFailure(sqlite3* engine) {
  const bool locked = IsLockConflict(sqlite3_extended_errcode(engine));
  return locked ? LockedFailure(sqlite3_errmsg(engine)) : DatabaseFailure(sqlite3_errmsg(engine));
}

}  // namespace td
