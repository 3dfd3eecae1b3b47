#include "sqlite/sqlite_functions.h"

#include <sqlite3.h>

#include <cstddef>
#include <string_view>

#include "sqlite/sqlite_failure.h"
#include "text/characters.h"

namespace td {
namespace {

void IsNullFunction(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
  const bool missing = sqlite3_value_type(arguments[0]) == SQLITE_NULL;
  sqlite3_result_value(context, arguments[missing ? 1 : 0]);
}

// Bytes of the first `count` characters of a UTF-8 text.
std::size_t LengthOfCharacters(std::string_view text, sqlite3_int64 count) {
  std::string_view rest = text;
  for (; count > 0 && !rest.empty(); --count) TakeCharacter(rest);
  return text.size() - rest.size();
}

void LeftFunction(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL ||
      sqlite3_value_type(arguments[1]) == SQLITE_NULL) {
    return;  // Null is the result that a function has until it sets another
  }
  const int kind = sqlite3_value_numeric_type(arguments[1]);
  const sqlite3_int64 count = sqlite3_value_int64(arguments[1]);
  if ((kind != SQLITE_INTEGER && kind != SQLITE_FLOAT) || count < 0) {
    sqlite3_result_error(context, "invalid length passed to left()", -1);
    return;
  }
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
  if (bytes == nullptr) {
    sqlite3_result_error_nomem(context);
    return;
  }
  const std::string_view text(bytes, static_cast<std::size_t>(sqlite3_value_bytes(arguments[0])));
  sqlite3_result_text64(context, bytes, LengthOfCharacters(text, count), SQLITE_TRANSIENT,
                        SQLITE_UTF8);
}

}  // namespace

void RegisterFunctions(sqlite3* engine) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  const auto add = [engine](const char* name, auto* function) {
    const int code = sqlite3_create_function_v2(engine, name, 2, kFlags, nullptr, function, nullptr,
                                                nullptr, nullptr);
    if (code != SQLITE_OK) throw EngineFailure(engine);
  };
  add("isnull", &IsNullFunction);
  add("left", &LeftFunction);
}

}  // namespace td
