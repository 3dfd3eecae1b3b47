// Databases behind drivers of the driver manager: servers such as PostgreSQL, MariaDB, SQL Server.
#pragma once

#include <memory>
#include <string>

#include "sql_support/transaction.h"

namespace td {

class OdbcSession;
template <typename Session>
class SessionPool;

// Connection texts: see ToDriverText in odbc/driver_text.h.
//
// A query's rows are fetched whole before OpenQuery returns, and clones share them: a snapshot on
// which the cursor and lock types change nothing. The kinds of the values: see ReadValue in
// odbc/odbc_values.h. Of two columns with one name the first is found. A statement that delivers no
// rows, opened as a query, is carried out and leaves a closed record set.
//
// The statements pass the step of ToEngineDialect in odbc/engine_dialect.h. Text behind a
// statement's semicolon fails with nothing executed; a second statement without a semicolon before
// it, which only SQL Server would take, is not noticed.
//
// A lock of another user is waited for one second; the description of the failure then contains 锁,
// as it does after a deadlock or a serialization failure. In any other description that character
// is replaced by 鎖. No description holds a password.
//
// Connections and prepared statements are kept and used again. When the server went away in
// between, a query connects anew by itself. Calls may come from several threads.
class OdbcDatabase final : public TransactionalDatabase {
 public:
  OdbcDatabase();
  ~OdbcDatabase() override;

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql,
                         CursorType cursor = CursorType::kUnspecified,
                         LockType lock = LockType::kUnspecified) override;
  // On SQL Server and engines that are not known by name, which have no transaction that refuses to
  // write, the words of the statement decide.
  RecordsetRef OpenReadOnly(const std::string& connection, const std::string& sql) override;
  std::unique_ptr<Connection> Connect(const std::string& connection) override;
  // Serializable: where the engine can't keep others from changing what was read, the transaction
  // fails as locked.
  std::unique_ptr<Transaction> Begin(const std::string& connection, Access access) override;

 private:
  RecordsetRef Open(const std::string& connection, const std::string& sql, Access access);

  std::shared_ptr<SessionPool<OdbcSession>> pool_;
};

}  // namespace td
