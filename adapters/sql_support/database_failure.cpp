#include "sql_support/database_failure.h"

#include "platform/standard_failures.h"
#include "text_encoding/text_repair.h"

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

Failure NoStatement() {
  return DatabaseFailure("没有语句");
}

Failure TextBehindStatement() {
  return DatabaseFailure("语句结束之后还有文字，没有执行");
}

}  // namespace td
