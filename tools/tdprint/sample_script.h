// The sample as a script for one of the database engines.
#pragma once

#include <iosfwd>
#include <optional>
#include <string_view>

struct sqlite3;

namespace td {

enum class ScriptEngine { kSqlite, kPostgreSql, kMariaDb, kSqlServer };

// sqlite, postgresql, mariadb or sqlserver, in lower case; nothing for any other name.
[[nodiscard]] std::optional<ScriptEngine> ScriptEngineNamed(std::string_view name);

// Writes a script in UTF-8 for the engine's own client, to be run once in a database that has none
// of the tables: the tables, indexes, views and rows of the sample or, if only the schema is
// wanted, the tables that the component reads and writes, with their indexes.
//
//   in the sample               PostgreSQL         MariaDB            SQL Server
//   real                        double precision   double             float
//   text                        text               text               nvarchar(max)
//   varchar(n)                  varchar(n)         varchar(n)         nvarchar(n)
//   blob                        bytea              longblob           varbinary(max)
//   '…'                         '…'                '…'                N'…'
//   x'…'                        '\x…'              x'…'               0x…
//   a || b                      a || b             a || b             a + b
//   printf('%.2f', a)           a decimal with two places, as text
//   printf('%.15g', a)          a floating number, as text
//
// integer and decimal(p,s), and all other words, mean the same everywhere. Names stay without
// quotes, so that each engine finds them in the way that it finds those of the statements.
// Fails with kDatabaseFailed.
void WriteSampleScript(sqlite3* sample, ScriptEngine engine, bool onlySchema, std::ostream& out);

}  // namespace td
