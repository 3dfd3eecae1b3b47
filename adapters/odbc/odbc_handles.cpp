#include "odbc/odbc_handles.h"

#include <array>
#include <cstdint>

#include "odbc/odbc_failure.h"
#include "sql_support/database_failure.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

constexpr std::uintptr_t kLoginSeconds = 10;

// Numbers travel to the driver manager as pointers.
SQLPOINTER AsPointer(std::uintptr_t number) {
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

std::string WithoutPassword(std::string words, const std::string& password) {
  if (password.empty()) return words;
  for (auto at = words.find(password); at != std::string::npos; at = words.find(password, at + 3)) {
    words.replace(at, password.size(), "***");
  }
  return words;
}

}  // namespace

// What the driver manager keeps for all connections.
class OdbcEnvironment {
 public:
  OdbcEnvironment() {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handle_);
    SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
  }
  ~OdbcEnvironment() { SQLFreeHandle(SQL_HANDLE_ENV, handle_); }
  OdbcEnvironment(const OdbcEnvironment&) = delete;
  OdbcEnvironment& operator=(const OdbcEnvironment&) = delete;

  [[nodiscard]] SQLHENV Get() const { return handle_; }

 private:
  SQLHENV handle_ = SQL_NULL_HENV;
};

namespace {

// Goes with the last connection: when a module is unloaded, Windows lets it call no driver manager.
std::shared_ptr<const OdbcEnvironment> SharedEnvironment() {
  static std::weak_ptr<const OdbcEnvironment> shared;
  auto environment = shared.lock();
  if (!environment) shared = environment = std::make_shared<const OdbcEnvironment>();
  return environment;
}

}  // namespace

OdbcConnectionHandle::OdbcConnectionHandle(const DriverText& driver)
    : environment_(SharedEnvironment()) {
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, environment_->Get(), &handle_))) {
    throw DatabaseFailure("驱动管理器没有可用的连接");
  }
  SQLSetConnectAttrW(handle_, SQL_ATTR_LOGIN_TIMEOUT, AsPointer(kLoginSeconds), SQL_IS_UINTEGER);
  const std::u16string text = ToUtf16(driver.text);
  const SQLRETURN code =
      SQLDriverConnectW(handle_, nullptr, WideText(text), static_cast<SQLSMALLINT>(text.size()),
                        nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(code)) {
    const OdbcDiagnosis diagnosis = Diagnose(SQL_HANDLE_DBC, handle_);
    SQLFreeHandle(SQL_HANDLE_DBC, handle_);
    throw DatabaseFailure("连接失败：" + WithoutPassword(diagnosis.words, driver.password));
  }
}

OdbcConnectionHandle::~OdbcConnectionHandle() {
  SQLDisconnect(handle_);
  SQLFreeHandle(SQL_HANDLE_DBC, handle_);
}

std::string OdbcConnectionHandle::EngineName() const {
  std::array<char16_t, 128> name{};
  SQLSMALLINT bytes = 0;
  SQLGetInfoW(handle_, SQL_DBMS_NAME, name.data(), static_cast<SQLSMALLINT>(sizeof(name)), &bytes);
  return ToUtf8(name.data());
}

bool OdbcConnectionHandle::KnownDead() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttrW(handle_, SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
  return dead == SQL_CD_TRUE;
}

bool OdbcConnectionHandle::BeginTransaction(SQLUINTEGER isolation) {
  return SQL_SUCCEEDED(SQLSetConnectAttrW(handle_, SQL_ATTR_TXN_ISOLATION, AsPointer(isolation),
                                          SQL_IS_UINTEGER)) &&
         SQL_SUCCEEDED(SQLSetConnectAttrW(handle_, SQL_ATTR_AUTOCOMMIT,
                                          AsPointer(SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER));
}

bool OdbcConnectionHandle::EndTransaction(SQLSMALLINT completion) {
  return SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, handle_, completion));
}

OdbcStatementHandle MakeStatement(const OdbcConnectionHandle& connection) {
  SQLHSTMT statement = SQL_NULL_HSTMT;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection.Get(), &statement))) {
    throw DatabaseFailure(Diagnose(SQL_HANDLE_DBC, connection.Get()).words);
  }
  // Braces in a text are not escapes for the driver.
  SQLSetStmtAttrW(statement, SQL_ATTR_NOSCAN, AsPointer(SQL_NOSCAN_ON), SQL_IS_UINTEGER);
  return OdbcStatementHandle(statement);
}

}  // namespace td
