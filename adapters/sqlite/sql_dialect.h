// The step from the statements' dialect to SQLite's.
#pragma once

#include <string>
#include <string_view>

namespace td {

// Lets the functions isnull and left be called: both are keywords to SQLite, so a call's name is
// put in double quotes. All other text stays byte for byte, texts, quoted names and comments
// included.
[[nodiscard]] std::string ToSqliteDialect(std::string_view sql);

// Whether the text holds nothing but white space and comments.
[[nodiscard]] bool IsBlank(std::string_view sql);

// The first word of a statement, behind white space and comments; empty if it begins otherwise.
[[nodiscard]] std::string_view FirstWord(std::string_view sql);

}  // namespace td
