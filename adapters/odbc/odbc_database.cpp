#include "odbc/odbc_database.h"

#include <utility>

#include "memory_rows/memory_recordset.h"
#include "odbc/odbc_session.h"
#include "sql_support/database_failure.h"
#include "sql_support/session_pool.h"
#include "sql_support/sql_literal.h"

namespace td {
namespace {

using Pool = SessionPool<OdbcSession>;

// A session whose server answers, since a statement that writes can't be sent a second time.
std::unique_ptr<OdbcSession> TakeAnswering(Pool& pool, const std::string& connection) {
  while (auto session = pool.TakeKept(connection)) {
    if (session->Answers()) return session;
  }
  return std::make_unique<OdbcSession>(connection);
}

class OdbcConnection final : public Connection {
 public:
  OdbcConnection(std::shared_ptr<Pool> pool, std::string connection)
      : pool_(std::move(pool)),
        connection_(std::move(connection)),
        session_(TakeAnswering(*pool_, connection_)) {}
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;
  ~OdbcConnection() override { pool_->GiveBack(std::move(connection_), std::move(session_)); }

  void Execute(const std::string& sql) override {
    WithEnoughMemory([&] { session_->Run(sql); });
  }

 private:
  std::shared_ptr<Pool> pool_;
  std::string connection_;
  std::unique_ptr<OdbcSession> session_;
};

class OdbcTransaction final : public Transaction {
 public:
  OdbcTransaction(const std::string& connection, Access access) : session_(connection) {
    session_.Begin(access);
  }
  OdbcTransaction(const OdbcTransaction&) = delete;
  OdbcTransaction& operator=(const OdbcTransaction&) = delete;
  ~OdbcTransaction() override { session_.Rollback(); }

  std::shared_ptr<const MemoryRows> Run(const std::string& sql) override {
    return WithEnoughMemory([&] { return session_.Run(sql); });
  }

  std::vector<KeyColumn> PrimaryKey(const std::string& table) override {
    return ReadKeyColumns(*Run(PrimaryKeyStatement(table, session_.EngineOfIt())));
  }

  [[nodiscard]] std::string Literal(const Value& value) const override {
    return SqlLiteral(value, LiteralFormOf(session_.EngineOfIt()));
  }

  void Commit() override { session_.Commit(); }

 private:
  OdbcSession session_;
};

}  // namespace

OdbcDatabase::OdbcDatabase() : pool_(std::make_shared<Pool>()) {}

OdbcDatabase::~OdbcDatabase() = default;

RecordsetRef OdbcDatabase::OpenQuery(const std::string& connection, const std::string& sql,
                                     CursorType /*cursor*/, LockType /*lock*/) {
  return Open(connection, sql, Access::kReadWrite);
}

RecordsetRef OdbcDatabase::OpenReadOnly(const std::string& connection, const std::string& sql) {
  return Open(connection, sql, Access::kReadOnly);
}

RecordsetRef OdbcDatabase::Open(const std::string& connection, const std::string& sql,
                                Access access) {
  const auto runOn = [&](std::unique_ptr<OdbcSession>& session) -> RecordsetRef {
    auto rows = session->Run(sql, access);
    pool_->GiveBack(connection, std::move(session));
    return std::make_shared<MemoryRecordset>(std::move(rows));
  };
  return WithEnoughMemory([&] {
    while (auto session = pool_->TakeKept(connection)) {
      try {
        return runOn(session);
      } catch (const Failure&) {
        const bool mayRunTwice = access == Access::kReadOnly || session->IsQuery(sql);
        if (!session->Lost() || !mayRunTwice) throw;
      }
    }
    auto session = std::make_unique<OdbcSession>(connection);
    return runOn(session);
  });
}

std::unique_ptr<Connection> OdbcDatabase::Connect(const std::string& connection) {
  return WithEnoughMemory([&] { return std::make_unique<OdbcConnection>(pool_, connection); });
}

std::unique_ptr<Transaction> OdbcDatabase::Begin(const std::string& connection, Access access) {
  return WithEnoughMemory([&] { return std::make_unique<OdbcTransaction>(connection, access); });
}

}  // namespace td
