// The step from the statements' dialect to SQLite's.
#pragma once

#include <string>
#include <string_view>

namespace td {

// Lets the functions isnull and left be called: both are keywords to SQLite, so a call's name is
// put in double quotes. All other text stays byte for byte, texts, quoted names and comments
// included.
[[nodiscard]] std::string ToSqliteDialect(std::string_view sql);

}  // namespace td
