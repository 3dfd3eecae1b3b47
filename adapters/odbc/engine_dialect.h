// What the database management systems behind the drivers want differently.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sql_support/sql_literal.h"
#include "sql_support/sql_scanner.h"

namespace td {

enum class Engine { kPostgreSql, kMariaDb, kSqlServer, kSqlite, kOther };

// By the name that the driver tells.
[[nodiscard]] Engine EngineByName(std::string_view name);

[[nodiscard]] const SqlLexicon& LexiconOf(Engine engine);

// What a new connection must be told so that statements mean the same everywhere: backslashes in
// texts stand for themselves, double quotes stand around names, and a lock is waited for one second
// (the shortest wait that every engine offers).
[[nodiscard]] std::vector<std::string> SettingsOf(Engine engine);

// The statement that allows or forbids the ways of joining that shuffle the rows of the first
// table; empty where the engine has none.
[[nodiscard]] std::string_view JoinSetting(Engine engine, bool mayShuffle);

// The statements around one that must change nothing: between them the engine refuses to write. All
// are empty where the engine has no such transaction.
struct ReadOnlyTransaction {
  std::string_view begin;
  std::string_view end;
  std::string_view ofSession;  // makes each transaction that a session begins later such a one
};
[[nodiscard]] ReadOnlyTransaction ReadOnlyTransactionOf(Engine engine);

// How values are written.
[[nodiscard]] LiteralForm LiteralFormOf(Engine engine);

// Asks for the names of the columns of a table's primary key, in their order, and whether each is
// generated: 1 or 0.
[[nodiscard]] std::string PrimaryKeyStatement(std::string_view table, Engine engine);

// The names of a database's tables; of use where the engine tells upper from lower case in them.
class TableNames {
 public:
  TableNames() = default;
  explicit TableNames(std::vector<std::string> names) : names_(std::move(names)) {}

  // The one table that a word names without regard to case; the word itself where a table has
  // exactly this name, or none or several have it in other capitals.
  [[nodiscard]] std::string_view Find(std::string_view word) const;

 private:
  std::vector<std::string> names_;
};

// The statement in the engine's dialect: two-argument isnull becomes coalesce where the engine
// knows no such function, and table names get the capitals that they were made with. Texts, names
// in quotes and comments stay byte for byte.
[[nodiscard]] std::string ToEngineDialect(std::string_view sql, Engine engine,
                                          const TableNames& tables);

}  // namespace td
