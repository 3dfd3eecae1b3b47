// Statements that must not change anything: the print data's, which people write.
#pragma once

#include <string>
#include <string_view>

#include "platform/database.h"
#include "platform/failure.h"
#include "sql_support/sql_scanner.h"

namespace td {

enum class Access { kReadWrite, kReadOnly };

class ReadOnlyDatabase : public Database {
 public:
  // Opens the rows of a query. A statement that would change anything fails, and nothing of it has
  // run. What a function does outside the database's tables is up to the engine.
  virtual RecordsetRef OpenReadOnly(const std::string& connection, const std::string& sql) = 0;
};

// Fails on a statement that is no query (select, with, values, table), and on a query whose rows go
// into a table, a variable or a file of the server.
void CheckIsQuery(std::string_view sql, const SqlLexicon& lexicon);

// Fails on a query that holds a word which no query has: one that writes, or that begins a second
// statement. For engines that can't be told to refuse writing.
void CheckHoldsNoCommand(std::string_view sql, const SqlLexicon& lexicon);

[[nodiscard]] Failure WouldChangeFailure();

}  // namespace td
