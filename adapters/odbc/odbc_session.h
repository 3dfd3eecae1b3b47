// One connection through a driver with its prepared statements.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "memory_rows/memory_rows.h"
#include "odbc/engine_dialect.h"
#include "odbc/odbc_failure.h"
#include "odbc/odbc_handles.h"
#include "odbc/odbc_rowset.h"
#include "sql_support/read_only.h"
#include "sql_support/statement_cache.h"

namespace td {

class OdbcSession {
 public:
  // Connects. Fails with kDatabaseFailed.
  explicit OdbcSession(const std::string& connection);

  // Runs one statement to its end, waiting a second for a lock. Returns its rows, or nothing for a
  // statement that delivers none. A statement that is not allowed to write and would fails with
  // nothing changed.
  std::shared_ptr<const MemoryRows> Run(const std::string& sql, Access access = Access::kReadWrite);

  // A transaction of all statements that follow, which nothing but Commit lets take effect.
  // Rollback comes before the session dies.
  void Begin(Access access);
  void Commit();
  void Rollback() noexcept;

  [[nodiscard]] Engine EngineOfIt() const { return engine_; }

  // Whether the connection is not known to be gone. Asks nobody, which would cost each query a
  // second trip to the server: a server that went away shows in the next statement.
  [[nodiscard]] bool Usable() const { return !lost_; }
  // Asks the server.
  [[nodiscard]] bool Answers();

  // Whether no statement has failed or left something behind in the connection.
  [[nodiscard]] bool Reusable() const { return reusable_; }
  // Whether the connection was gone when the last statement failed.
  [[nodiscard]] bool Lost() const { return lost_; }
  // Whether a statement only reads, so that it can be sent again.
  [[nodiscard]] bool IsQuery(const std::string& sql) const;

 private:
  struct Prepared {
    OdbcStatementHandle handle;
    bool mayBind = false;
    std::vector<OdbcColumn> columns{};
    ColumnNamesRef names{};  // of the columns; empty as long as there are none
    std::unique_ptr<OdbcRowset> rowset{};
    // The size of the last result: a run asks the same again and again.
    std::size_t lastRows = 0;
    std::size_t lastBytes = 0;
  };

  using Rows = std::shared_ptr<const MemoryRows>;

  void ArrangeJoins(const std::string& sql);
  [[nodiscard]] std::optional<Rows> RunReadOnly(const std::string& sql);
  void RunOnce(std::string_view sql);
  [[nodiscard]] std::optional<Rows> RunKept(const std::string& sql);
  [[nodiscard]] Prepared Prepare(const std::string& sql);
  Rows Execute(Prepared& prepared);
  [[nodiscard]] bool MayBind(const std::string& sql) const;
  void Describe(Prepared& prepared) const;
  [[nodiscard]] bool Fetch(Prepared& prepared, MemoryRows& rows) const;
  [[noreturn]] void Fail(const Prepared& prepared);
  [[noreturn]] void FailConnection() const;
  void ReadTableNames();

  OdbcConnectionHandle connection_;
  Engine engine_;
  TableNames tables_;
  StatementCache<Prepared> prepared_;
  bool joinsShuffle_ = true;
  bool reusable_ = true;
  bool lost_ = false;
  bool locked_ = false;
};

}  // namespace td
