#include "odbc/engine_dialect.h"

#include <algorithm>
#include <cstddef>

namespace td {
namespace {

constexpr SqlLexicon kPostgreSqlLexicon{
    .dollarQuotes = true, .escapeTexts = true, .nestedComments = true};
constexpr SqlLexicon kMariaDbLexicon{
    .backquotes = true, .hashComments = true, .guardedComments = true};
constexpr SqlLexicon kSqlServerLexicon{
    .brackets = true, .doubledBrackets = true, .nestedComments = true};
constexpr SqlLexicon kStandardLexicon{};

// A lone integer key is the number that SQLite gives each row anyway.
std::string SqliteKeyStatement(std::string_view table) {
  const std::string columns = "pragma_table_info('" + std::string(table) + "')";
  return "select name,case when upper(type)='INTEGER' and (select max(pk) from " + columns +
         ")=1 then 1 else 0 end from " + columns + " where pk>0 order by pk";
}

}  // namespace

Engine EngineByName(std::string_view name) {
  if (EqualWords(name, "PostgreSQL")) return Engine::kPostgreSql;
  if (EqualWords(name, "MariaDB") || EqualWords(name, "MySQL")) return Engine::kMariaDb;
  if (EqualWords(name, "Microsoft SQL Server")) return Engine::kSqlServer;
  if (EqualWords(name, "SQLite")) return Engine::kSqlite;
  return Engine::kOther;
}

const SqlLexicon& LexiconOf(Engine engine) {
  switch (engine) {
    case Engine::kPostgreSql:
      return kPostgreSqlLexicon;
    case Engine::kMariaDb:
      return kMariaDbLexicon;
    case Engine::kSqlServer:
      return kSqlServerLexicon;
    case Engine::kSqlite:
      return kSqliteLexicon;
    case Engine::kOther:
      break;
  }
  return kStandardLexicon;
}

std::vector<std::string> SettingsOf(Engine engine) {
  switch (engine) {
    case Engine::kPostgreSql:
      return {"set standard_conforming_strings=on", "set lock_timeout=1000"};
    case Engine::kMariaDb:
      return {
          "set session sql_mode=concat(@@sql_mode,',ANSI_QUOTES,NO_BACKSLASH_ESCAPES'),"
          "innodb_lock_wait_timeout=1,lock_wait_timeout=1"};
    case Engine::kSqlServer:
      return {"set quoted_identifier on", "set lock_timeout 1000"};
    case Engine::kSqlite:  // its driver is told in the connection text
    case Engine::kOther:
      break;
  }
  return {};
}

std::string_view JoinSetting(Engine engine, bool mayShuffle) {
  if (engine == Engine::kPostgreSql) {
    return mayShuffle ? "select set_config('enable_hashjoin','on',false),"
                        "set_config('enable_mergejoin','on',false)"
                      : "select set_config('enable_hashjoin','off',false),"
                        "set_config('enable_mergejoin','off',false)";
  }
  if (engine == Engine::kMariaDb) {
    return mayShuffle ? "set join_cache_level=default" : "set join_cache_level=0";
  }
  return "";
}

ReadOnlyTransaction ReadOnlyTransactionOf(Engine engine) {
  if (engine == Engine::kPostgreSql) {
    return {"begin read only", "rollback", "set session characteristics as transaction read only"};
  }
  if (engine == Engine::kMariaDb) {
    return {"start transaction read only", "rollback", "set session transaction read only"};
  }
  if (engine == Engine::kSqlite) {
    return {"pragma query_only=1", "pragma query_only=0", "pragma query_only=1"};
  }
  return {};
}

LiteralForm LiteralFormOf(Engine engine) {
  switch (engine) {
    case Engine::kPostgreSql:
      return {.beforeBytes = "'\\x", .quotesNumbers = true};
    case Engine::kSqlServer:
      return {.beforeText = "N", .beforeBytes = "0x", .behindBytes = ""};
    case Engine::kMariaDb:
    case Engine::kSqlite:
    case Engine::kOther:
      break;
  }
  return {};
}

std::string PrimaryKeyStatement(std::string_view table, Engine engine) {
  if (engine == Engine::kSqlite) return SqliteKeyStatement(table);
  std::string_view schema = "t.table_schema=database()";
  std::string_view isGenerated = "c.extra like '%auto_increment%'";
  if (engine == Engine::kPostgreSql) {
    schema = "t.table_schema=any(current_schemas(false))";
    isGenerated = "c.column_default is not null or c.is_identity='YES'";
  } else if (engine == Engine::kSqlServer) {
    schema = "t.table_schema=schema_name()";
    isGenerated =
        "c.column_default is not null or "
        "columnproperty(object_id(c.table_name),c.column_name,'IsIdentity')=1";
  }
  std::string sql = "select k.column_name,case when ";
  sql.append(isGenerated).append(" then 1 else 0 end from information_schema.table_constraints t ");
  sql +=
      "inner join information_schema.key_column_usage k on k.constraint_name=t.constraint_name "
      "and k.table_schema=t.table_schema and k.table_name=t.table_name "
      "inner join information_schema.columns c on c.table_schema=k.table_schema "
      "and c.table_name=k.table_name and c.column_name=k.column_name "
      "where t.constraint_type='PRIMARY KEY' and lower(t.table_name)=lower('";
  sql.append(table).append("') and ").append(schema);
  return sql + " order by k.ordinal_position";
}

std::string_view TableNames::Find(std::string_view word) const {
  std::string_view found;
  std::size_t count = 0;
  for (const std::string& name : names_) {
    if (name == word) return word;
    if (EqualWords(name, word)) {
      found = name;
      ++count;
    }
  }
  return count == 1 ? found : word;
}

std::string ToEngineDialect(std::string_view sql, Engine engine, const TableNames& tables) {
  const bool lacksIsnull = engine != Engine::kSqlServer;
  std::string result;
  result.reserve(sql.size() + 16);
  SqlScanner scanner(sql, LexiconOf(engine));
  for (SqlToken token = scanner.Next(); token != SqlToken::kEnd; token = scanner.Next()) {
    const std::string_view text = scanner.Text();
    if (token != SqlToken::kWord) {
      result += text;
    } else if (lacksIsnull && EqualWords(text, "isnull") && scanner.PeekPastBlanks() == "(") {
      result += "coalesce";
    } else {
      result += tables.Find(text);
    }
  }
  return result;
}

}  // namespace td
