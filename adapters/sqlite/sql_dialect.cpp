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
  SqlScanner scanner(sql);
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

bool IsBlank(std::string_view sql) {
  SqlScanner scanner(sql);
  SqlToken token = scanner.Next();
  while (token == SqlToken::kBlank) token = scanner.Next();
  return token == SqlToken::kEnd;
}

std::string_view FirstWord(std::string_view sql) {
  SqlScanner scanner(sql);
  SqlToken token = scanner.Next();
  while (token == SqlToken::kBlank) token = scanner.Next();
  return token == SqlToken::kWord ? scanner.Text() : std::string_view();
}

}  // namespace td
