// Handles of the driver manager that free themselves.
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <memory>
#include <string>

#include "odbc/driver_text.h"

namespace td {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the driver manager's wide text is UTF-16");

// The driver manager takes texts as arrays that may be changed, and changes none.
[[nodiscard]] inline SQLWCHAR* WideText(const std::u16string& text) {
  return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

class OdbcEnvironment;

// A connection; disconnects when it dies, which ends an open transaction without effect. A
// transaction is one of the driver's: drivers commit one that was begun by a statement when a
// cursor closes.
class OdbcConnectionHandle {
 public:
  // Connects. Fails with kDatabaseFailed; the password is in no description.
  explicit OdbcConnectionHandle(const DriverText& driver);
  ~OdbcConnectionHandle();
  OdbcConnectionHandle(const OdbcConnectionHandle&) = delete;
  OdbcConnectionHandle& operator=(const OdbcConnectionHandle&) = delete;

  [[nodiscard]] SQLHDBC Get() const { return handle_; }
  // The name of the database management system, as the driver tells it.
  [[nodiscard]] std::string EngineName() const;
  // Whether the connection is gone, as far as the driver knows; some drivers ask the server.
  [[nodiscard]] bool KnownDead() const;

  // From here on statements take effect together; `isolation` is one of SQL_TXN_…. False, with a
  // diagnosis, if the driver refuses.
  [[nodiscard]] bool BeginTransaction(SQLUINTEGER isolation);
  // SQL_COMMIT or SQL_ROLLBACK, likewise.
  [[nodiscard]] bool EndTransaction(SQLSMALLINT completion);

 private:
  std::shared_ptr<const OdbcEnvironment> environment_;
  SQLHDBC handle_ = SQL_NULL_HDBC;
};

struct OdbcStatementCloser {
  using pointer = SQLHSTMT;
  void operator()(SQLHSTMT statement) const { SQLFreeHandle(SQL_HANDLE_STMT, statement); }
};
using OdbcStatementHandle = std::unique_ptr<SQLHSTMT, OdbcStatementCloser>;

[[nodiscard]] OdbcStatementHandle MakeStatement(const OdbcConnectionHandle& connection);

}  // namespace td
