// Wrong files, wrong statements, and a database that another user has locked.
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "failure_of.h"
#include "sqlite/sqlite_database.h"
#include "temporary_database.h"

namespace td {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

bool SaysLocked(const std::string& description) {
  return description.find("锁") != std::string::npos;
}

class SqliteFailure : public testing::Test {
 protected:
  // The description with which a query fails, which must not be taken for a lock.
  std::string QueryFails(const std::string& connection, const std::string& sql = "select 1") {
    const Failure failure = FailureOf([&] { database_.OpenQuery(connection, sql); });
    EXPECT_EQ(failure.Number(), kDatabaseFailed);
    EXPECT_FALSE(SaysLocked(failure.Description())) << failure.Description();
    return failure.Description();
  }
  Value One(const std::string& sql) { return database_.OpenQuery(connection_, sql)->Field("a"); }

  TemporaryFolder folder_;
  std::string path_ = folder_.File("账.db");
  std::string connection_ =
      MakeDatabase(path_, "create table t(a); insert into t values(1); create table 锁表(a)");
  SqliteDatabase database_;
};

TEST_F(SqliteFailure, OfAMissingFileMakesNoFile) {
  const std::string missing = folder_.File("没有.db");
  EXPECT_EQ(QueryFails("sqlite:" + missing), "数据库错误：找不到数据库文件“" + missing + "”");
  EXPECT_THROW(database_.Connect("sqlite:" + missing), Failure);
  QueryFails("sqlite:" + missing + "/below.db");
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(SqliteFailure, OfNamesThatAreSpecialToTheEngine) {
  QueryFails("sqlite::memory:");
  QueryFails("sqlite:file::memory:?cache=shared");
  QueryFails("sqlite: ");
}

TEST_F(SqliteFailure, OfAFolder) {
  EXPECT_NE(QueryFails("sqlite:" + folder_.Path().string()).find("不是普通文件"),
            std::string::npos);
}

TEST_F(SqliteFailure, OfAFileThatIsNoDatabase) {
  const std::string path = folder_.File("锁.txt");
  std::ofstream(PathOf(path)) << std::string(4096, 'x');
  EXPECT_NE(QueryFails("sqlite:" + path).find("鎖.txt”不是 SQLite 数据库"), std::string::npos);
  EXPECT_THROW(database_.Connect("sqlite:" + path), Failure);
}

TEST_F(SqliteFailure, OfADamagedDatabaseIsNoCrash) {
  std::filesystem::resize_file(PathOf(path_), 5000);
  std::fstream file(PathOf(path_), std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(100);
  file << std::string(3000, '\x7F');
  file.close();
  QueryFails(connection_, "select a from t");
}

TEST_F(SqliteFailure, CarriesTheEnginesWords) {
  EXPECT_EQ(QueryFails(connection_, "select a from nowhere"), "数据库错误：no such table: nowhere");
  EXPECT_EQ(QueryFails(connection_, "select b from t"), "数据库错误：no such column: b");
  EXPECT_NE(QueryFails(connection_, "selct 1").find("syntax error"), std::string::npos);
  EXPECT_NE(QueryFails(connection_, "select isnull(a) from t").find("wrong number of arguments"),
            std::string::npos);
}

TEST_F(SqliteFailure, NeverLooksLikeALockWhenItIsNone) {
  EXPECT_EQ(QueryFails(connection_, "select 锁 from 锁表"), "数据库错误：no such column: 鎖");
  EXPECT_EQ(QueryFails("sqlite:/锁/锁.db"), "数据库错误：找不到数据库文件“/鎖/鎖.db”");
  QueryFails("锁");
}

TEST_F(SqliteFailure, OfANameInDoubleQuotesThatIsNoColumn) {
  EXPECT_EQ(QueryFails(connection_, "select \"b\" from t"), "数据库错误：no such column: b");
}

TEST_F(SqliteFailure, OfTextBehindTheStatementExecutesNothing) {
  const auto connection = database_.Connect(connection_);
  for (const char* sql : {"update t set a=2;update t set a=3", "update t set a=2; x",
                          "delete from t;;", "update t set a=2;--\n'",
                          "update t set a=2;/**/select 1", "update t set a=2 update t set a=3"}) {
    EXPECT_EQ(FailureOf([&] { connection->Execute(sql); }).Number(), kDatabaseFailed) << sql;
    QueryFails(connection_, sql);
  }
  connection->Execute("update t set a=a+10 ; -- all\n /* done */ ");
  EXPECT_EQ(One("select a from t;"), Value(std::int64_t{11}));
}

TEST_F(SqliteFailure, OfAStatementThatIsNone) {
  EXPECT_EQ(QueryFails(connection_, ""), "数据库错误：没有语句");
  EXPECT_EQ(QueryFails(connection_, " -- nothing"), "数据库错误：没有语句");
  EXPECT_EQ(QueryFails(connection_, ";"), "数据库错误：没有语句");
}

TEST_F(SqliteFailure, OfANulInAStatementExecutesNothing) {
  const std::string sql("delete from t\0 where a=5", 24);
  QueryFails(connection_, sql);
  EXPECT_THROW(database_.Connect(connection_)->Execute(sql), Failure);
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{1}));
}

TEST_F(SqliteFailure, OfALockedDatabaseComesAfterAShortWaitAndSaysSo) {
  const auto connection = database_.Connect(connection_);
  OtherUser other(path_);
  other.Run("begin exclusive");
  const auto start = steady_clock::now();
  const Failure query = FailureOf([&] { database_.OpenQuery(connection_, "select a from t"); });
  const auto waited = steady_clock::now() - start;
  EXPECT_EQ(query.Number(), kDatabaseFailed);
  EXPECT_TRUE(SaysLocked(query.Description()));
  EXPECT_NE(query.Description().find("database is locked"), std::string::npos);
  EXPECT_GE(waited, milliseconds(100));
  EXPECT_TRUE(
      SaysLocked(FailureOf([&] { connection->Execute("update t set a=2"); }).Description()));
  EXPECT_TRUE(SaysLocked(FailureOf([&] { database_.Connect(connection_); }).Description()));
}

TEST_F(SqliteFailure, OfALockIsOverWhenTheOtherUserIsDone) {
  const auto connection = database_.Connect(connection_);
  OtherUser other(path_);
  other.Run("begin exclusive; update t set a=5");
  const auto add = [&connection] { connection->Execute("update t set a=a+1"); };
  EXPECT_TRUE(SaysLocked(FailureOf(add).Description()));
  EXPECT_TRUE(SaysLocked(FailureOf(add).Description()));
  other.Run("commit");
  add();
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{6}));
}

// A busy machine may wake the other user too late; then it was not quick and is asked again.
TEST_F(SqliteFailure, OfALockDoesNotComeWhenTheOtherUserIsQuick) {
  constexpr int kTries = 20;
  bool answered = false;
  for (int i = 0; i < kTries && !answered; ++i) {
    OtherUser other(path_);
    other.Run("begin exclusive; update t set a=5");
    std::thread release([&other] {
      std::this_thread::sleep_for(milliseconds(50));
      other.Run("commit");
    });
    try {
      EXPECT_EQ(One("select a from t"), Value(std::int64_t{5}));
      answered = true;
    } catch (const Failure& failure) {
      EXPECT_TRUE(SaysLocked(failure.Description())) << failure.Description();
    }
    release.join();
  }
  EXPECT_TRUE(answered);
}

TEST_F(SqliteFailure, OfAWriteUnderAReadersLockSaysSo) {
  OtherUser other(path_);
  other.Run("begin; select * from t");
  const auto connection = database_.Connect(connection_);
  EXPECT_TRUE(
      SaysLocked(FailureOf([&] { connection->Execute("update t set a=2"); }).Description()));
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{1}));
  other.Run("commit");
  connection->Execute("update t set a=2");
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{2}));
}

TEST_F(SqliteFailure, OfANameWithTheLockCharacterStaysCleanWhenTheDatabaseIsLocked) {
  const auto connection = database_.Connect(connection_);
  OtherUser other(path_);
  other.Run("begin immediate");
  EXPECT_TRUE(SaysLocked(
      FailureOf([&] { connection->Execute("insert into 锁表 values(1)"); }).Description()));
  EXPECT_FALSE(SaysLocked(
      FailureOf([&] { connection->Execute("insert into 锁 values(1)"); }).Description()));
}

}  // namespace
}  // namespace td
