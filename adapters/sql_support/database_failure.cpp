#include "sql_support/database_failure.h"

#include "memory_rows/text_repair.h"

namespace td {
namespace {

constexpr const char* kLead = "数据库错误：";

std::string Clean(std::string_view words) {
  return WithoutLockCharacter(ValidUtf8(words));
}

}  // namespace

Failure DatabaseFailure(std::string_view description) {
  return {kDatabaseFailed, kLead + Clean(description)};
}

Failure LockedFailure(std::string_view engineWords) {
  return {kDatabaseFailed, std::string(kLead) + "数据库被锁定（" + Clean(engineWords) + "）"};
}

void CheckStatementText(const std::string& sql) {
  // Engines take a NUL for the end, and would run what stands before it.
  if (sql.find('\0') != std::string::npos) throw DatabaseFailure("语句里有空字符");
}

}  // namespace td
