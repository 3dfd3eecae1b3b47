// What must not be seen of the connections and statements that are kept: each open is an open.
#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "failure_of.h"
#include "sql_support/session_pool.h"
#include "sqlite/sqlite_database.h"
#include "sqlite/sqlite_session.h"
#include "temporary_database.h"

namespace td {
namespace {

class SqlitePool : public testing::Test {
 protected:
  Value One(const std::string& sql = "select a from t") {
    return database_.OpenQuery(connection_, sql)->Field("a");
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.File("bills.db");
  std::string connection_ = MakeDatabase(path_, "create table t(a); insert into t values(1)");
  SqliteDatabase database_;
};

TEST_F(SqlitePool, UsesAConnectionAgain) {
  SessionPool<SqliteSession> pool;
  auto session = pool.Take(connection_);
  const SqliteSession* first = session.get();
  session->Run("select a from t");
  pool.GiveBack(connection_, std::move(session));
  EXPECT_EQ(pool.Take(connection_).get(), first);
}

TEST_F(SqlitePool, GivesTwoUsersTwoConnections) {
  SessionPool<SqliteSession> pool;
  const auto first = pool.Take(connection_);
  EXPECT_NE(pool.Take(connection_).get(), first.get());
}

TEST_F(SqlitePool, DropsAConnectionAfterAFailure) {
  SqliteSession session(connection_);
  EXPECT_TRUE(session.Reusable());
  EXPECT_THROW(session.Run("select nothing"), Failure);
  EXPECT_FALSE(session.Reusable());
  session.Run("select 1");
  EXPECT_FALSE(session.Reusable());
}

TEST_F(SqlitePool, SeesWhatOthersHaveWritten) {
  EXPECT_EQ(One(), Value(std::int64_t{1}));
  OtherUser(path_).Run("update t set a=3");
  EXPECT_EQ(One(), Value(std::int64_t{3}));
}

TEST_F(SqlitePool, SeesColumnsThatOthersHaveChanged) {
  OtherUser other(path_);
  other.Run("pragma journal_mode=wal");
  const char* sql = "select * from t";
  EXPECT_EQ(One(sql), Value(std::int64_t{1}));
  other.Run(
      "alter table t add column b; alter table t rename column a to c;"
      "alter table t rename column b to a; update t set a=7");
  EXPECT_EQ(One(sql), Value(std::int64_t{7}));
  EXPECT_EQ(database_.OpenQuery(connection_, sql)->Field("c"), Value(std::int64_t{1}));
}

TEST_F(SqlitePool, SeesItsOwnWritesAtOnce) {
  One();
  const auto connection = database_.Connect(connection_);
  connection->Execute("update t set a=4");
  EXPECT_EQ(One(), Value(std::int64_t{4}));
  connection->Execute("update t set a=5");
  EXPECT_EQ(One(), Value(std::int64_t{5}));
}

TEST_F(SqlitePool, HandsOnNoTransactionAndNoSetting) {
  {
    const auto connection = database_.Connect(connection_);
    connection->Execute("create temp table u(a)");
    connection->Execute("begin");
    connection->Execute("update t set a=6");
  }
  EXPECT_EQ(One(), Value(std::int64_t{1}));
  EXPECT_THROW(One("select a from u"), Failure);
  database_.OpenQuery(connection_, "pragma query_only=1");
  database_.Connect(connection_)->Execute("update t set a=7");
  EXPECT_EQ(One(), Value(std::int64_t{7}));
}

TEST_F(SqlitePool, CarriesOutAQueryThatDeliversNoRows) {
  const RecordsetRef rows = database_.OpenQuery(connection_, "update t set a=8");
  EXPECT_EQ(FailureOf([&] { rows->Eof(); }).Number(), kObjectClosed);
  EXPECT_EQ(One(), Value(std::int64_t{8}));
}

TEST_F(SqlitePool, CarriesOutAllRowsOfAStatementThatIsExecuted) {
  database_.Connect(connection_)
      ->Execute("with n(i) as (values(1),(2),(3)) insert into t select i from n returning a");
  EXPECT_EQ(One("select count(*) as a from t"), Value(std::int64_t{4}));
}

TEST_F(SqlitePool, KeepsManyStatementsAndFilesApart) {
  for (int round = 0; round < 3; ++round) {
    for (std::int64_t i = 0; i < 100; ++i) {
      EXPECT_EQ(One("select " + std::to_string(i) + " as a"), Value(i));
    }
  }
  for (std::int64_t i = 0; i < 20; ++i) {
    const std::string n = std::to_string(i);
    const std::string connection =
        MakeDatabase(folder_.File(n + ".db"), "create table t(a); insert into t values(" + n + ")");
    EXPECT_EQ(database_.OpenQuery(connection, "select a from t")->Field("a"), Value(i));
  }
}

TEST_F(SqlitePool, ServesSeveralThreads) {
  const auto read = [this] {
    for (int i = 0; i < 200; ++i) EXPECT_EQ(One(), Value(std::int64_t{1}));
  };
  std::thread first(read);
  std::thread second(read);
  first.join();
  second.join();
}

TEST_F(SqlitePool, LetsAConnectionOutliveTheDatabase) {
  auto database = std::make_unique<SqliteDatabase>();
  const auto connection = database->Connect(connection_);
  database.reset();
  connection->Execute("update t set a=2");
  EXPECT_EQ(One(), Value(std::int64_t{2}));
}

}  // namespace
}  // namespace td
