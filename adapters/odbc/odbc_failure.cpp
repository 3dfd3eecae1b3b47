#include "odbc/odbc_failure.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>

#include "sql_support/database_failure.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

bool IsOneOf(SQLINTEGER native, std::initializer_list<SQLINTEGER> numbers) {
  return std::find(numbers.begin(), numbers.end(), native) != numbers.end();
}

bool IsOneOf(std::string_view state, std::initializer_list<std::string_view> states) {
  return std::find(states.begin(), states.end(), state) != states.end();
}

// Drivers put their names in brackets in front.
std::string WithoutDriverNames(std::string_view words) {
  while (!words.empty() && words.front() == '[') {
    const auto end = words.find(']');
    if (end == std::string_view::npos) break;
    words.remove_prefix(end + 1);
  }
  std::string line(words);
  std::replace(line.begin(), line.end(), '\n', ' ');
  return line;
}

}  // namespace

OdbcDiagnosis Diagnose(SQLSMALLINT kind, SQLHANDLE handle) {
  std::array<char16_t, 6> state{};
  std::array<char16_t, 4096> words{};
  OdbcDiagnosis diagnosis;
  SQLSMALLINT length = 0;
  const SQLRETURN code = SQLGetDiagRecW(
      kind, handle, 1, reinterpret_cast<SQLWCHAR*>(state.data()), &diagnosis.native,
      reinterpret_cast<SQLWCHAR*>(words.data()), static_cast<SQLSMALLINT>(words.size()), &length);
  if (!SQL_SUCCEEDED(code)) {
    diagnosis.words = "unknown error";
    return diagnosis;
  }
  diagnosis.state = ToUtf8(state.data());
  diagnosis.words = WithoutDriverNames(ToUtf8(words.data()));
  return diagnosis;
}

bool IsLockConflict(const OdbcDiagnosis& diagnosis, Engine engine) {
  switch (engine) {
    case Engine::kPostgreSql:
      return IsOneOf(diagnosis.state, {"40001", "40P01", "55P03"});
    case Engine::kMariaDb:
      return IsOneOf(diagnosis.native, {1020, 1205, 1213});
    case Engine::kSqlServer:
      return IsOneOf(diagnosis.native, {1205, 1222, 3960});
    case Engine::kSqlite:
      return IsOneOf(diagnosis.native & 0xFF, {5, 6, 15});  // busy, locked, a crowd at the file
    case Engine::kOther:
      return diagnosis.state == "40001";
  }
  return false;
}

bool IsConnectionLost(const OdbcDiagnosis& diagnosis, Engine engine) {
  if (diagnosis.state.starts_with("08")) return true;
  if (engine == Engine::kPostgreSql) {
    return IsOneOf(diagnosis.state, {"57P01", "57P02", "57P03"});
  }
  return engine == Engine::kMariaDb && IsOneOf(diagnosis.native, {1053, 1927, 2006, 2013, 2055});
}

Failure StatementFailure(const OdbcDiagnosis& diagnosis, Engine engine) {
  return IsLockConflict(diagnosis, engine) ? LockedFailure(diagnosis.words)
                                           : DatabaseFailure(diagnosis.words);
}

}  // namespace td
