#include "sql_support/statement_text.h"

#include <algorithm>
#include <array>

#include "sql_support/database_failure.h"

namespace td {

void CheckNoNul(const std::string& sql) {
  if (sql.find('\0') != std::string::npos) throw DatabaseFailure("语句里有空字符");
}

void CheckOneStatement(std::string_view sql, const SqlLexicon& lexicon) {
  SqlScanner scanner(sql, lexicon);
  bool hasStatement = false;
  for (SqlToken token = scanner.Next(); token != SqlToken::kEnd; token = scanner.Next()) {
    if (token == SqlToken::kBlank) continue;
    if (scanner.Text() == ";") break;
    hasStatement = true;
  }
  if (!hasStatement) throw NoStatement();
  if (!IsBlankSql(scanner.Rest(), lexicon)) throw TextBehindStatement();
}

bool IsBlankSql(std::string_view sql, const SqlLexicon& lexicon) {
  return SqlScanner(sql, lexicon).PeekPastBlanks().empty();
}

std::string_view FirstWord(std::string_view sql, const SqlLexicon& lexicon) {
  SqlScanner scanner(sql, lexicon);
  SqlToken token = scanner.Next();
  while (token == SqlToken::kBlank) token = scanner.Next();
  return token == SqlToken::kWord ? scanner.Text() : std::string_view();
}

bool AsksForOrder(std::string_view sql, const SqlLexicon& lexicon) {
  SqlScanner scanner(sql, lexicon);
  for (SqlToken token = scanner.Next(); token != SqlToken::kEnd; token = scanner.Next()) {
    if (token == SqlToken::kWord && EqualWords(scanner.Text(), "order")) return true;
  }
  return false;
}

bool LeavesNothingBehind(std::string_view sql, const SqlLexicon& lexicon) {
  constexpr std::array<std::string_view, 7> kPlain = {"select", "with",   "values", "insert",
                                                      "update", "delete", "replace"};
  const std::string_view word = FirstWord(sql, lexicon);
  return std::any_of(kPlain.begin(), kPlain.end(),
                     [word](std::string_view plain) { return EqualWords(plain, word); });
}

}  // namespace td
