#include "script_dialect.h"

#include <array>
#include <vector>

#include "platform/failure.h"
#include "sql_support/sql_scanner.h"

namespace td {
namespace {

struct Word {
  std::string_view sample;
  std::string_view postgreSql;
  std::string_view mariaDb;
  std::string_view sqlServer;
};

constexpr std::array<Word, 4> kTypes = {{
    {"real", "double precision", "double", "float"},
    {"text", "text", "text", "nvarchar(max)"},
    {"varchar", "varchar", "varchar", "nvarchar"},
    {"blob", "bytea", "longblob", "varbinary(max)"},
}};

// What stands in the place of a call of printf with this format, before and behind its argument.
struct Formatting {
  std::string_view format;
  ScriptEngine engine;
  std::string_view before;
  std::string_view behind;
};

constexpr std::array<Formatting, 6> kFormattings = {{
    {"'%.2f'", ScriptEngine::kPostgreSql, "cast(cast(", " as decimal(18,2)) as varchar(30))"},
    {"'%.2f'", ScriptEngine::kMariaDb, "cast(cast(", " as decimal(18,2)) as varchar(30))"},
    {"'%.2f'", ScriptEngine::kSqlServer, "cast(cast(", " as decimal(18,2)) as nvarchar(30))"},
    {"'%.15g'", ScriptEngine::kPostgreSql, "cast(cast(", " as double precision) as varchar(30))"},
    {"'%.15g'", ScriptEngine::kMariaDb, "cast(cast(", " as double) as varchar(30))"},
    {"'%.15g'", ScriptEngine::kSqlServer, "format(cast(", " as float), N'G15')"},
}};

std::string_view TypeOf(std::string_view word, ScriptEngine engine) {
  for (const Word& type : kTypes) {
    if (!EqualWords(type.sample, word)) continue;
    if (engine == ScriptEngine::kPostgreSql) return type.postgreSql;
    return engine == ScriptEngine::kMariaDb ? type.mariaDb : type.sqlServer;
  }
  return word;
}

const Formatting& FormattingOf(std::string_view format, ScriptEngine engine) {
  for (const Formatting& formatting : kFormattings) {
    if (formatting.format == format && formatting.engine == engine) return formatting;
  }
  throw Failure(kInvalidCall, "printf in the sample's SQL has a format that no other engine has: " +
                                  std::string(format));
}

// Writes one create statement anew.
class Translation {
 public:
  Translation(std::string_view sql, ScriptEngine engine)
      : scanner_(sql, kSqliteLexicon), engine_(engine) {}

  std::string Write() {
    for (SqlToken token = scanner_.Next(); token != SqlToken::kEnd; token = scanner_.Next()) {
      const std::string_view text = scanner_.Text();
      if (token == SqlToken::kWord) {
        WriteWord(text);
      } else if (token == SqlToken::kQuoted && engine_ == ScriptEngine::kSqlServer) {
        result_.append(text.front() == '\'' ? "N" : "").append(text);
      } else if (text == "|" && engine_ == ScriptEngine::kSqlServer) {
        result_ += "+";
        scanner_.Next();
      } else {
        WriteOther(text);
      }
    }
    return std::move(result_);
  }

 private:
  void WriteWord(std::string_view word) {
    if (!EqualWords(word, "printf")) {
      result_ += TypeOf(word, engine_);
      return;
    }
    Skip("(");
    scanner_.Next();
    const Formatting& formatting = FormattingOf(scanner_.Text(), engine_);
    Skip(",");
    result_ += formatting.before;
    behind_.push_back({depth_, formatting.behind});
    SkipBlank();
    ++depth_;
  }

  void WriteOther(std::string_view text) {
    if (text == "(") ++depth_;
    if (text == ")") --depth_;
    if (text == ")" && !behind_.empty() && behind_.back().depth == depth_) {
      result_ += behind_.back().text;
      behind_.pop_back();
    } else {
      result_ += text;
    }
  }

  void Skip(std::string_view mark) {
    while (scanner_.Next() == SqlToken::kBlank) {
    }
    if (scanner_.Text() != mark) {
      throw Failure(kInvalidCall, "printf in the sample's SQL is not called as expected");
    }
  }

  void SkipBlank() {
    SqlScanner ahead = scanner_;
    if (ahead.Next() == SqlToken::kBlank) scanner_ = ahead;
  }

  struct Behind {
    int depth;
    std::string_view text;
  };

  SqlScanner scanner_;
  ScriptEngine engine_;
  std::string result_;
  std::vector<Behind> behind_;  // of the printf calls that are open
  int depth_ = 0;               // of parentheses
};

}  // namespace

std::string_view ScriptHead(ScriptEngine engine) {
  switch (engine) {
    case ScriptEngine::kSqlite:
      return "";
    case ScriptEngine::kPostgreSql:
      return "set client_encoding = 'UTF8';\n";
    case ScriptEngine::kMariaDb:
      return "set names utf8mb4;\nset sql_mode = 'ANSI,NO_BACKSLASH_ESCAPES,STRICT_ALL_TABLES';\n";
    case ScriptEngine::kSqlServer:
      return "set quoted_identifier on;\nset nocount on;\ngo\n";
  }
  return "";
}

std::string_view StatementEnd(ScriptEngine engine) {
  return engine == ScriptEngine::kSqlServer ? ";\ngo\n" : ";\n";
}

std::string ToScriptDialect(std::string_view createStatement, ScriptEngine engine) {
  if (engine == ScriptEngine::kSqlite) return std::string(createStatement);
  return Translation(createStatement, engine).Write();
}

std::string TextLiteral(std::string_view text, ScriptEngine engine) {
  std::string literal = engine == ScriptEngine::kSqlServer ? "N'" : "'";
  for (const char c : text) literal.append(c == '\'' ? 2 : 1, c);
  return literal + "'";
}

std::string BytesLiteral(const unsigned char* bytes, std::size_t size, ScriptEngine engine) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string digits;
  digits.reserve(2 * size);
  for (std::size_t i = 0; i < size; ++i)
    digits += {kDigits[bytes[i] >> 4U], kDigits[bytes[i] & 15U]};
  if (engine == ScriptEngine::kSqlServer) return "0x" + digits;
  return (engine == ScriptEngine::kPostgreSql ? "'\\x" : "x'") + digits + "'";
}

}  // namespace td
