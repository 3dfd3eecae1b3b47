// What can be told of a statement without an engine.
#pragma once

#include <string>
#include <string_view>

#include "sql_support/sql_scanner.h"

namespace td {

// Fails on a text with a NUL: engines take it for the end, and would run what stands before it.
void CheckNoNul(const std::string& sql);

// Fails when there is no statement in the text, or any text behind the statement's semicolon but
// white space and comments. For engines that would run a second statement.
void CheckOneStatement(std::string_view sql, const SqlLexicon& lexicon);

// Whether the text holds nothing but white space and comments.
[[nodiscard]] bool IsBlankSql(std::string_view sql, const SqlLexicon& lexicon);

// The first word of a statement, behind white space and comments; empty if it begins otherwise.
[[nodiscard]] std::string_view FirstWord(std::string_view sql, const SqlLexicon& lexicon);

// Whether a query says in which order it wants its rows. The component's own mostly do not: the
// items of a format are to come as they were entered.
[[nodiscard]] bool AsksForOrder(std::string_view sql, const SqlLexicon& lexicon);

// Whether the statement is of a kind that reads and writes rows, and so leaves no transaction, no
// temporary table and no setting behind in the connection.
[[nodiscard]] bool LeavesNothingBehind(std::string_view sql, const SqlLexicon& lexicon);

}  // namespace td
