#include "odbc/odbc_session.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <cstddef>
#include <utility>
#include <variant>

#include "odbc/odbc_values.h"
#include "sql_support/database_failure.h"
#include "sql_support/statement_text.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

ColumnNamesRef NamesOf(const std::vector<OdbcColumn>& columns) {
  std::vector<std::string> names;
  names.reserve(columns.size());
  for (const OdbcColumn& column : columns) names.push_back(column.name);
  return std::make_shared<const ColumnNames>(std::move(names));
}

// MariaDB's driver tells a wrong length for UTF-16 texts with characters such as 付 (U+4ED8), whose
// low byte it takes for half of a pair; its UTF-8 texts are right.
TextForm TextsOf(Engine engine) {
  return engine == Engine::kMariaDb ? TextForm::kUtf8 : TextForm::kUtf16;
}

// A cursor that stayed open would keep the statement from running again.
class CursorCloser {
 public:
  explicit CursorCloser(SQLHSTMT statement) : statement_(statement) {}
  ~CursorCloser() { SQLFreeStmt(statement_, SQL_CLOSE); }
  CursorCloser(const CursorCloser&) = delete;
  CursorCloser& operator=(const CursorCloser&) = delete;

 private:
  SQLHSTMT statement_;
};

}  // namespace

OdbcSession::OdbcSession(const std::string& connection)
    : connection_(ToDriverText(connection)), engine_(EngineByName(connection_.EngineName())) {
  for (const std::string& setting : SettingsOf(engine_)) Run(setting);
  if (engine_ == Engine::kMariaDb) ReadTableNames();
  reusable_ = true;
}

void OdbcSession::ReadTableNames() {
  const auto rows =
      Run("select table_name from information_schema.tables where table_schema=database() and "
          "@@lower_case_table_names=0");
  std::vector<std::string> names;
  names.reserve(rows->RowCount());
  Value name;
  for (std::size_t row = 0; row < rows->RowCount(); ++row) {
    rows->Read(row, 0, name);
    names.push_back(std::get<std::string>(name));
  }
  tables_ = TableNames(std::move(names));
}

bool OdbcSession::Answers() {
  try {
    Run("select 1");
    return true;
  } catch (const Failure&) {
    return false;
  }
}

bool OdbcSession::IsQuery(const std::string& sql) const {
  return EqualWords(FirstWord(sql, LexiconOf(engine_)), "select");
}

void OdbcSession::Begin(Access access) {
  reusable_ = false;
  const bool writes = access == Access::kReadWrite;
  if (!connection_.BeginTransaction(writes ? SQL_TXN_SERIALIZABLE : SQL_TXN_REPEATABLE_READ)) {
    FailConnection();
  }
}

void OdbcSession::Commit() {
  if (!connection_.EndTransaction(SQL_COMMIT)) FailConnection();
}

void OdbcSession::Rollback() noexcept {
  // Without a connection there is nothing left to undo.
  static_cast<void>(connection_.EndTransaction(SQL_ROLLBACK));
}

std::shared_ptr<const MemoryRows> OdbcSession::Run(const std::string& sql, Access access) {
  const bool wasReusable = std::exchange(reusable_, false);  // stays so when a failure leaves
  ArrangeJoins(sql);
  auto rows = access == Access::kReadOnly ? RunReadOnly(sql) : RunKept(sql);
  if (!rows) rows = Execute(prepared_.Add(sql, Prepare(sql)));
  reusable_ = wasReusable && LeavesNothingBehind(sql, LexiconOf(engine_));
  return *std::move(rows);
}

// A failure ends the connection, and the transaction with it.
std::optional<OdbcSession::Rows> OdbcSession::RunReadOnly(const std::string& sql) {
  CheckIsQuery(sql, LexiconOf(engine_));
  const ReadOnlyTransaction transaction = ReadOnlyTransactionOf(engine_);
  if (transaction.begin.empty()) CheckHoldsNoCommand(sql, LexiconOf(engine_));
  RunOnce(transaction.begin);
  Prepared prepared = Prepare(sql);
  Rows rows = Execute(prepared);
  RunOnce(transaction.end);
  return rows;
}

void OdbcSession::RunOnce(std::string_view sql) {
  if (sql.empty()) return;
  Prepared prepared = Prepare(std::string(sql));
  Execute(prepared);
}

// Without an order of its own a query gets the rows of its first table as they lie there.
void OdbcSession::ArrangeJoins(const std::string& sql) {
  const bool mayShuffle = AsksForOrder(sql, LexiconOf(engine_));
  if (mayShuffle == joinsShuffle_) return;
  RunOnce(JoinSetting(engine_, mayShuffle));
  joinsShuffle_ = mayShuffle;
}

std::optional<OdbcSession::Rows> OdbcSession::RunKept(const std::string& sql) {
  Prepared* const kept = prepared_.Find(sql);
  if (kept == nullptr) return std::nullopt;
  try {
    return Execute(*kept);
  } catch (const Failure&) {
    // Engines refuse a prepared query whose tables were changed; prepared anew it runs.
    prepared_.Remove(sql);
    if (lost_ || locked_ || !IsQuery(sql)) throw;
    return std::nullopt;
  }
}

// Only a query can run a second time if its rows turn out not to fit; and the two drivers are known
// to fill blocks of rows right.
bool OdbcSession::MayBind(const std::string& sql) const {
  return (engine_ == Engine::kPostgreSql || engine_ == Engine::kMariaDb) && IsQuery(sql);
}

OdbcSession::Prepared OdbcSession::Prepare(const std::string& sql) {
  CheckNoNul(sql);
  CheckOneStatement(sql, LexiconOf(engine_));
  Prepared prepared{.handle = MakeStatement(connection_), .mayBind = MayBind(sql)};
  const std::u16string text = ToUtf16(ToEngineDialect(sql, engine_, tables_));
  const SQLRETURN code =
      SQLPrepareW(prepared.handle.get(), WideText(text), static_cast<SQLINTEGER>(text.size()));
  if (!SQL_SUCCEEDED(code)) Fail(prepared);
  return prepared;
}

OdbcSession::Rows OdbcSession::Execute(Prepared& prepared) {
  for (;;) {
    const CursorCloser closeAtEnd(prepared.handle.get());
    const SQLRETURN code = SQLExecute(prepared.handle.get());
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) Fail(prepared);
    try {
      Describe(prepared);
      if (!prepared.names) return nullptr;
      auto rows =
          std::make_shared<MemoryRows>(prepared.names, prepared.lastRows, prepared.lastBytes);
      if (Fetch(prepared, *rows)) {
        prepared.lastRows = rows->RowCount();
        prepared.lastBytes = rows->ByteCount();
        return rows;
      }
    } catch (const OdbcReadError&) {
      Fail(prepared);
    }
    prepared.rowset.reset();
    prepared.mayBind = false;
  }
}

// PostgreSQL refuses a prepared query whose columns have changed. Elsewhere they are described anew
// each time, and the names are shared if they are the same.
void OdbcSession::Describe(Prepared& prepared) const {
  if (engine_ == Engine::kPostgreSql && prepared.names) return;
  std::vector<OdbcColumn> columns = ReadColumns(prepared.handle.get());
  if (prepared.names && columns == prepared.columns) return;
  prepared.columns = std::move(columns);
  prepared.names = prepared.columns.empty() ? nullptr : NamesOf(prepared.columns);
  prepared.rowset.reset();
  if (prepared.names && prepared.mayBind) {
    prepared.rowset = OdbcRowset::Bind(prepared.handle.get(), prepared.columns, TextsOf(engine_));
  }
}

// False if the query has to run once more without its rowset.
bool OdbcSession::Fetch(Prepared& prepared, MemoryRows& rows) const {
  if (prepared.rowset) return prepared.rowset->Fetch(rows);
  const SQLHSTMT statement = prepared.handle.get();
  const TextForm texts = TextsOf(engine_);
  for (;;) {
    const SQLRETURN code = SQLFetch(statement);
    if (code == SQL_NO_DATA) return true;
    if (!SQL_SUCCEEDED(code)) throw OdbcReadError();
    for (std::size_t i = 0; i < prepared.columns.size(); ++i) {
      rows.Add(
          ReadValue(statement, static_cast<SQLUSMALLINT>(i + 1), prepared.columns[i].type, texts));
    }
  }
}

void OdbcSession::FailConnection() const {
  throw StatementFailure(Diagnose(SQL_HANDLE_DBC, connection_.Get()), engine_);
}

void OdbcSession::Fail(const Prepared& prepared) {
  const OdbcDiagnosis diagnosis = Diagnose(SQL_HANDLE_STMT, prepared.handle.get());
  lost_ = IsConnectionLost(diagnosis, engine_) || connection_.KnownDead();
  locked_ = IsLockConflict(diagnosis, engine_);
  throw StatementFailure(diagnosis, engine_);
}

}  // namespace td
