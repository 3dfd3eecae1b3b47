#include "sqlite/sqlite_session.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <limits>
#include <string_view>
#include <utility>

#include "files/file_error.h"
#include "sql_support/database_failure.h"
#include "sql_support/statement_text.h"
#include "sqlite/connection_text.h"
#include "sqlite/engine_file.h"
#include "sqlite/sql_dialect.h"
#include "sqlite/sqlite_failure.h"
#include "sqlite/sqlite_functions.h"
#include "text_encoding/text_repair.h"

namespace td {
namespace {

constexpr int kLockWaitMilliseconds = 200;

// For the number of a FileError; the engine's words serve where there is none.
Failure OpenFailure(const std::string& path, int number, const char* engineWords = "") {
  const std::string name = "“" + path + "”";
  if (number == ENOENT || number == ENOTDIR) return DatabaseFailure("找不到数据库文件" + name);
  if (number == EISDIR) return DatabaseFailure(name + "不是普通文件");
  if (number == EACCES) return DatabaseFailure("没有权限打开数据库文件" + name);
  const std::string reason = number == 0 ? engineWords : ReasonOf(number);
  return DatabaseFailure("打不开数据库文件" + name + "（" + reason + "）");
}

// The value is taken once: each question to the statement finds it anew. Nobody else uses a session
// at the same time, so no lock has to protect it.
void AddValue(MemoryRows& rows, sqlite3_stmt* statement, int column) {
  sqlite3_value* value = sqlite3_column_value(statement, column);
  const auto size = [&] { return static_cast<std::size_t>(sqlite3_value_bytes(value)); };
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      rows.AddInteger(sqlite3_value_int64(value));
      return;
    case SQLITE_FLOAT:
      rows.AddReal(sqlite3_value_double(value));
      return;
    case SQLITE_TEXT: {
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
      if (text == nullptr) throw std::bad_alloc();
      rows.AddText(std::string_view(text, size()));
      return;
    }
    case SQLITE_BLOB: {
      const void* bytes = sqlite3_value_blob(value);
      rows.AddBytes(bytes, bytes == nullptr ? 0 : size());
      return;
    }
    default:
      rows.AddNull();
  }
}

ColumnNamesRef ReadColumns(sqlite3_stmt* statement) {
  std::vector<std::string> names;
  const int count = sqlite3_column_count(statement);
  for (int column = 0; column < count; ++column) {
    const char* name = sqlite3_column_name(statement, column);
    if (name == nullptr) throw std::bad_alloc();
    names.emplace_back(name);
  }
  return std::make_shared<const ColumnNames>(std::move(names));
}

}  // namespace

void SqliteSession::EngineCloser::operator()(sqlite3* engine) const {
  sqlite3_close_v2(engine);
}

void SqliteSession::StatementCloser::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

SqliteSession::SqliteSession(const std::string& connection) : path_(DatabasePath(connection)) {
  Open();
}

SqliteSession::~SqliteSession() = default;

void SqliteSession::Open() {
  const auto stamp = StampOf(path_);
  if (!stamp) throw OpenFailure(path_, errno);
  stamp_ = *stamp;

  const auto file = EngineFileOf(path_);
  if (!file) throw OpenFailure(path_, errno);
  sqlite3* engine = nullptr;
  const int code = sqlite3_open_v2(file->name.c_str(), &engine,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, file->access);
  engine_.reset(engine);
  if (code != SQLITE_OK) {
    throw OpenFailure(path_, FileErrorNumber(sqlite3_system_errno(engine)), sqlite3_errstr(code));
  }
  sqlite3_extended_result_codes(engine, 1);
  sqlite3_busy_timeout(engine, kLockWaitMilliseconds);
  // A misspelt name in double quotes must fail and not become a text.
  sqlite3_db_config(engine, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(engine, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  RegisterFunctions(engine);

  const int read = sqlite3_exec(engine, "pragma schema_version", nullptr, nullptr, nullptr);
  if (read == SQLITE_NOTADB) {
    throw DatabaseFailure("“" + path_ + "”不是 SQLite 数据库（" + sqlite3_errmsg(engine) + "）");
  }
  if (read != SQLITE_OK) throw EngineFailure(engine);
}

bool SqliteSession::Usable() const {
  return StampOf(path_) == stamp_;
}

bool SqliteSession::FileInPlace() const {
  const auto stamp = StampOf(path_);
  return stamp && stamp->SameFile(stamp_);
}

std::shared_ptr<const MemoryRows> SqliteSession::Run(const std::string& sql, Access access) {
  // Some statements that are no queries take effect while they are prepared.
  if (access == Access::kReadOnly) CheckIsQuery(sql, kSqliteLexicon);
  const bool wasReusable = std::exchange(reusable_, false);  // stays so when a failure leaves
  Prepared* const kept = prepared_.Find(sql);
  ArrangeJoins(kept != nullptr ? kept->mayShuffle : AsksForOrder(sql, kSqliteLexicon));
  Prepared& prepared = kept != nullptr ? *kept : prepared_.Add(sql, Prepare(sql));
  if (access == Access::kReadOnly && sqlite3_stmt_readonly(prepared.handle.get()) == 0) {
    throw WouldChangeFailure();
  }
  const auto reset = [](sqlite3_stmt* statement) { sqlite3_reset(statement); };
  const std::unique_ptr<sqlite3_stmt, decltype(reset)> resetAtEnd(prepared.handle.get(), reset);
  auto rows = Step(prepared);
  reusable_ =
      wasReusable && prepared.leavesNothingBehind && sqlite3_get_autocommit(engine_.get()) != 0;
  return rows;
}

// Without an order of its own a query gets the rows of its first table as they lie there; an index
// that the engine makes for one query would sort them.
void SqliteSession::ArrangeJoins(bool mayShuffle) {
  if (mayShuffle == joinsShuffle_) return;
  sqlite3_exec(engine_.get(),
               mayShuffle ? "pragma automatic_index=on" : "pragma automatic_index=off", nullptr,
               nullptr, nullptr);
  joinsShuffle_ = mayShuffle;
}

SqliteSession::Prepared SqliteSession::Prepare(const std::string& sql) const {
  CheckNoNul(sql);
  const std::string text = ToSqliteDialect(sql);
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    throw DatabaseFailure("语句太长");
  }
  sqlite3_stmt* statement = nullptr;
  const char* tail = nullptr;
  const int code = sqlite3_prepare_v3(engine_.get(), text.c_str(), static_cast<int>(text.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement, &tail);
  Prepared prepared;
  prepared.handle.reset(statement);
  if (code != SQLITE_OK) throw EngineFailure(engine_.get());
  if (statement == nullptr) throw NoStatement();
  if (!IsBlankSql(tail, kSqliteLexicon)) throw TextBehindStatement();
  prepared.leavesNothingBehind = LeavesNothingBehind(sql, kSqliteLexicon);
  prepared.mayShuffle = joinsShuffle_;
  return prepared;
}

std::shared_ptr<const MemoryRows> SqliteSession::Step(Prepared& prepared) const {
  sqlite3_stmt* statement = prepared.handle.get();
  int code = sqlite3_step(statement);
  if (code != SQLITE_ROW && code != SQLITE_DONE) throw EngineFailure(engine_.get());
  const int count = sqlite3_column_count(statement);
  if (count == 0) return nullptr;

  // The first step prepares a statement anew when the tables have changed, and its columns with it.
  const int preparations = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0);
  if (!prepared.columns || prepared.preparations != preparations) {
    prepared.columns = ReadColumns(statement);
    prepared.preparations = preparations;
  }
  auto result =
      std::make_shared<MemoryRows>(prepared.columns, prepared.lastRows, prepared.lastBytes);
  for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
    for (int column = 0; column < count; ++column) AddValue(*result, statement, column);
  }
  if (code != SQLITE_DONE) throw EngineFailure(engine_.get());
  prepared.lastRows = result->RowCount();
  prepared.lastBytes = result->ByteCount();
  return result;
}

}  // namespace td
