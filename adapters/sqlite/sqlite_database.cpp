#include "sqlite/sqlite_database.h"

#include <new>
#include <utility>

#include "memory_rows/memory_recordset.h"
#include "sql_support/database_failure.h"
#include "sqlite/session_pool.h"

namespace td {
namespace {

// Runs `action`; lack of memory becomes a failure like any other.
template <typename Action>
auto Guarded(const Action& action) {
  try {
    return action();
  } catch (const std::bad_alloc&) {
    throw Failure(kOutOfMemory, "内存不足，查询的结果太大。");
  }
}

class SqliteConnection final : public Connection {
 public:
  SqliteConnection(std::shared_ptr<SessionPool> pool, std::string connection)
      : pool_(std::move(pool)),
        connection_(std::move(connection)),
        session_(pool_->Take(connection_)) {}
  SqliteConnection(const SqliteConnection&) = delete;
  SqliteConnection& operator=(const SqliteConnection&) = delete;
  ~SqliteConnection() override { pool_->GiveBack(std::move(connection_), std::move(session_)); }

  void Execute(const std::string& sql) override {
    Guarded([&] {
      if (!session_->FileInPlace()) {
        throw DatabaseFailure("数据库文件已被替换或删除，请重新连接");
      }
      session_->Run(sql);
    });
  }

 private:
  std::shared_ptr<SessionPool> pool_;
  std::string connection_;
  std::unique_ptr<Session> session_;
};

}  // namespace

SqliteDatabase::SqliteDatabase() : pool_(std::make_shared<SessionPool>()) {}

SqliteDatabase::~SqliteDatabase() = default;

RecordsetRef SqliteDatabase::OpenQuery(const std::string& connection, const std::string& sql,
                                       CursorType /*cursor*/, LockType /*lock*/) {
  return Guarded([&]() -> RecordsetRef {
    auto session = pool_->Take(connection);
    auto rows = session->Run(sql);
    pool_->GiveBack(connection, std::move(session));
    return std::make_shared<MemoryRecordset>(std::move(rows));
  });
}

std::unique_ptr<Connection> SqliteDatabase::Connect(const std::string& connection) {
  return Guarded([&] { return std::make_unique<SqliteConnection>(pool_, connection); });
}

}  // namespace td
