#include "sqlite/sqlite_database.h"

#include <utility>

#include "memory_rows/memory_recordset.h"
#include "sql_support/database_failure.h"
#include "sql_support/session_pool.h"
#include "sql_support/sql_literal.h"
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

// Its session ends with it, and what is not committed with the session.
class SqliteTransaction final : public Transaction {
 public:
  SqliteTransaction(const std::string& connection, Access access)
      : session_(connection), access_(access) {
    session_.Run(access == Access::kReadOnly ? "begin" : "begin immediate");
  }

  std::shared_ptr<const MemoryRows> Run(const std::string& sql) override {
    return WithEnoughMemory([&] { return session_.Run(sql, access_); });
  }

  // A lone integer key is the number that the engine gives each row anyway.
  std::vector<KeyColumn> PrimaryKey(const std::string& table) override {
    const std::string columns = "pragma_table_info(" + Literal(table) + ")";
    return ReadKeyColumns(*Run("select name,upper(type)='INTEGER' and (select max(pk) from " +
                               columns + ")=1 from " + columns + " where pk>0 order by pk"));
  }

  [[nodiscard]] std::string Literal(const Value& value) const override {
    return SqlLiteral(value, {});
  }

  void Commit() override { session_.Run("commit"); }

 private:
  SqliteSession session_;
  Access access_;
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

std::unique_ptr<Transaction> SqliteDatabase::Begin(const std::string& connection, Access access) {
  return WithEnoughMemory([&] { return std::make_unique<SqliteTransaction>(connection, access); });
}

}  // namespace td
