#include "sqlite/sql_dialect.h"

#include "sql_support/sql_scanner.h"

namespace td {
namespace {

bool IsKeywordFunction(std::string_view word) {
  return EqualWords(word, "isnull") || EqualWords(word, "left");
}

}  // namespace

std::string ToSqliteDialect(std::string_view sql) {
  std::string result;
  result.reserve(sql.size() + 8);
  SqlScanner scanner(sql, kSqliteLexicon);
  for (SqlToken token = scanner.Next(); token != SqlToken::kEnd; token = scanner.Next()) {
    const std::string_view text = scanner.Text();
    if (token == SqlToken::kWord && IsKeywordFunction(text) && scanner.PeekPastBlanks() == "(") {
      result.append("\"").append(text).append("\"");
    } else {
      result += text;
    }
  }
  return result;
}

}  // namespace td
