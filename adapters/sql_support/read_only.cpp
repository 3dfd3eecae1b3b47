#include "sql_support/read_only.h"

#include <algorithm>
#include <array>
#include <span>

#include "sql_support/database_failure.h"
#include "sql_support/statement_text.h"

namespace td {
namespace {

constexpr std::array<std::string_view, 4> kQueries = {"select", "with", "values", "table"};
constexpr std::array<std::string_view, 1> kTargets = {"into"};
constexpr std::array<std::string_view, 32> kCommands = {
    "alter",      "backup",   "begin",   "bulk",     "call",     "checkpoint", "commit",
    "create",     "dbcc",     "declare", "delete",   "deny",     "drop",       "exec",
    "execute",    "grant",    "insert",  "kill",     "merge",    "restore",    "reconfigure",
    "revoke",     "rollback", "save",    "set",      "shutdown", "truncate",   "update",
    "updatetext", "use",      "waitfor", "writetext"};

bool IsOneOf(std::string_view word, std::span<const std::string_view> words) {
  return std::ranges::any_of(words, [word](std::string_view one) { return EqualWords(one, word); });
}

// The word that a piece is or, since some engines need no blank behind a number, ends with.
std::string_view WordIn(SqlToken token, std::string_view text) {
  if (token == SqlToken::kWord) return text;
  return text.substr(std::min(text.find_first_not_of("0123456789"), text.size()));
}

bool HoldsOneOf(std::string_view sql, const SqlLexicon& lexicon,
                std::span<const std::string_view> words) {
  SqlScanner scanner(sql, lexicon);
  for (SqlToken token = scanner.Next(); token != SqlToken::kEnd; token = scanner.Next()) {
    if (IsOneOf(WordIn(token, scanner.Text()), words)) return true;
  }
  return false;
}

// What a statement begins with, the parentheses of a union's first query left aside.
std::string_view Beginning(std::string_view sql, const SqlLexicon& lexicon) {
  SqlScanner scanner(sql, lexicon);
  SqlToken token = scanner.Next();
  while (token == SqlToken::kBlank || scanner.Text() == "(") token = scanner.Next();
  return scanner.Text();
}

}  // namespace

void CheckIsQuery(std::string_view sql, const SqlLexicon& lexicon) {
  if (IsBlankSql(sql, lexicon)) throw NoStatement();
  const std::string_view beginning = Beginning(sql, lexicon);
  if (!IsOneOf(beginning, kQueries)) {
    throw DatabaseFailure("“" + std::string(beginning) +
                          "”不是查询：打印的数据只能用查询语句（select）读取，语句没有执行");
  }
  if (HoldsOneOf(sql, lexicon, kTargets)) throw WouldChangeFailure();
}

void CheckHoldsNoCommand(std::string_view sql, const SqlLexicon& lexicon) {
  if (HoldsOneOf(sql, lexicon, kCommands)) throw WouldChangeFailure();
}

Failure WouldChangeFailure() {
  return DatabaseFailure("打印的数据只能读取：语句会改动数据库，没有执行");
}

}  // namespace td
