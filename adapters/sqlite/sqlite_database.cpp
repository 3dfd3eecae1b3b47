#include "sqlite/sqlite_database.h"

#include <utility>

#include "memory_rows/memory_recordset.h"
#include "sql_support/database_failure.h"
#include "sql_support/session_pool.h"
#include "sqlite/sqlite_session.h"

namespace td {
namespace {

class SqliteConnection final : public Connection {
 public:
  SqliteConnection(std::shared_ptr<SessionPool<SqliteSession>> pool, std::string connection)
      : pool_(std::move(pool)),
        connection_(std::move(connection)),
        session_(pool_->Take(connection_)) {}
  SqliteConnection(const SqliteConnection&) = delete;
  SqliteConnection& operator=(const SqliteConnection&) = delete;
  ~SqliteConnection() override { pool_->GiveBack(std::move(connection_), std::move(session_)); }

  void Execute(const std::string& sql) override {
    WithEnoughMemory([&] {
      if (!session_->FileInPlace()) {
        throw DatabaseFailure("数据库文件已被替换或删除，请重新连接");
      }
      session_->Run(sql);
    });
  }

 private:
  std::shared_ptr<SessionPool<SqliteSession>> pool_;
  std::string connection_;
  std::unique_ptr<SqliteSession> session_;
};

}  // namespace

SqliteDatabase::SqliteDatabase() : pool_(std::make_shared<SessionPool<SqliteSession>>()) {}

SqliteDatabase::~SqliteDatabase() = default;

RecordsetRef SqliteDatabase::OpenQuery(const std::string& connection, const std::string& sql,
                                       CursorType /*cursor*/, LockType /*lock*/) {
  return Open(connection, sql, Access::kReadWrite);
}

RecordsetRef SqliteDatabase::OpenReadOnly(const std::string& connection, const std::string& sql) {
  return Open(connection, sql, Access::kReadOnly);
}

RecordsetRef SqliteDatabase::Open(const std::string& connection, const std::string& sql,
                                  Access access) {
  return WithEnoughMemory([&]() -> RecordsetRef {
    auto session = pool_->Take(connection);
    auto rows = session->Run(sql, access);
    pool_->GiveBack(connection, std::move(session));
    return std::make_shared<MemoryRecordset>(std::move(rows));
  });
}

std::unique_ptr<Connection> SqliteDatabase::Connect(const std::string& connection) {
  return WithEnoughMemory([&] { return std::make_unique<SqliteConnection>(pool_, connection); });
}

}  // namespace td
