#include "sqlite/sqlite_failure.h"

#include <sqlite3.h>

#include "memory_rows/text_repair.h"

namespace td {
namespace {

constexpr const char* kLead = "数据库错误：";

// Only what passes when the other user is done: a retry of anything else would never end.
bool IsLockConflict(int code) {
  const int primary = code & 0xFF;
  return primary == SQLITE_BUSY || primary == SQLITE_LOCKED || primary == SQLITE_PROTOCOL;
}

}  // namespace

Failure DatabaseFailure(const std::string& description) {
  return {kDatabaseFailed, WithoutLockCharacter(kLead + ValidUtf8(description))};
}

Failure EngineFailure(sqlite3* engine) {
  const std::string words = WithoutLockCharacter(ValidUtf8(sqlite3_errmsg(engine)));
  if (IsLockConflict(sqlite3_extended_errcode(engine))) {
    return {kDatabaseFailed, std::string(kLead) + "数据库被锁定（" + words + "）"};
  }
  return DatabaseFailure(words);
}

}  // namespace td
