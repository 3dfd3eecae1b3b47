#include <chrono>
#include <memory>
#include <thread>

#include "odbc_fixture.h"

namespace td {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

bool SaysLocked(const std::string& description) {
  return description.find("锁") != std::string::npos;
}

class OdbcFailure : public OnEachServer {
 protected:
  void SetUp() override {
    MakeTable("t", "k integer primary key, a integer");
    Execute("insert into t values(1,1),(2,1)");
  }
};
INSTANTIATE_TEST_SUITE_P(Servers, OdbcFailure,
                         testing::Values(Server::kPostgreSql, Server::kMariaDb), NameOfServer);

TEST_P(OdbcFailure, CarriesTheEnginesWords) {
  EXPECT_NE(Fails("select a from nowhere").find("nowhere"), std::string::npos);
  EXPECT_NE(Fails("select nothing as a from t").find("nothing"), std::string::npos);
  EXPECT_NE(Fails("selct 1").find("syntax"), std::string::npos);
}

TEST_P(OdbcFailure, NeverLooksLikeALockWhenItIsNone) {
  EXPECT_NE(Fails("select 锁 from t").find("鎖"), std::string::npos);
  EXPECT_NE(Fails("select a from 锁").find("鎖"), std::string::npos);
}

TEST_P(OdbcFailure, OfDataThatHoldsTheCharacterIsNoLock) {
  MakeTable("names", "a varchar(9) primary key");
  Execute("insert into names values('锁')");
  EXPECT_NE(Fails("insert into names values('锁')").find("鎖"), std::string::npos);
  EXPECT_NE(Fails("insert into t values('锁',1)").find("鎖"), std::string::npos);
  Fails("select '锁' as a from nowhere");
}

TEST_P(OdbcFailure, OfTextBehindTheStatementExecutesNothing) {
  const auto connection = database_.Connect(connection_);
  for (const char* sql :
       {"update t set a=2;update t set a=3", "update t set a=2; x", "delete from t;;",
        "update t set a=2;--\n'", "update t set a=2;/**/select 1", "update t set a=2 delete from t",
        "update t set a=2 where k<>';';select 1", "update t set a=2 /* ' */;delete from t -- '"}) {
    EXPECT_EQ(FailureOf([&] { connection->Execute(sql); }).Number(), kDatabaseFailed) << sql;
    Fails(sql);
  }
  connection->Execute("update t set a=a+10 ; -- all\n /* done */ ");
  EXPECT_EQ(One("select a from t where k=1;"), Value(std::int64_t{11}));
}

TEST_P(OdbcFailure, OfNoStatementOrANulExecutesNothing) {
  Fails("");
  Fails(" -- nothing");
  Fails(std::string("delete from t\0 where a=5", 24));
  EXPECT_EQ(One("select count(*) as a from t"), Value(std::int64_t{2}));
}

TEST_P(OdbcFailure, OfALockComesAfterABoundedWaitAndSaysSo) {
  const auto other = database_.Connect(connection_);
  other->Execute("begin");
  other->Execute("update t set a=5 where k=1");
  const auto connection = database_.Connect(connection_);
  const auto start = steady_clock::now();
  const Failure failure = FailureOf([&] { connection->Execute("update t set a=6 where k=1"); });
  const auto waited = steady_clock::now() - start;
  EXPECT_TRUE(SaysLocked(failure.Description())) << failure.Description();
  EXPECT_GE(waited, milliseconds(500));
  connection->Execute("update t set a=6 where k=2");
}

TEST_P(OdbcFailure, OfALockIsOverWhenTheOtherUserIsDone) {
  const auto other = database_.Connect(connection_);
  other->Execute("begin");
  other->Execute("update t set a=5 where k=1");
  const auto connection = database_.Connect(connection_);
  const auto add = [&connection] { connection->Execute("update t set a=a+1 where k=1"); };
  EXPECT_TRUE(SaysLocked(FailureOf(add).Description()));
  EXPECT_TRUE(SaysLocked(FailureOf(add).Description()));
  other->Execute("commit");
  add();
  EXPECT_EQ(One("select a from t where k=1"), Value(std::int64_t{6}));
}

TEST_P(OdbcFailure, OfAQueryOnALockedTableSaysSo) {
  const auto other = database_.Connect(connection_);
  other->Execute("begin");
  other->Execute(IsPostgreSql() ? "lock table t in access exclusive mode" : "lock tables t write");
  One("select 1 as a");
  const Failure failure = FailureOf([&] { Open("select a from t"); });
  EXPECT_TRUE(SaysLocked(failure.Description())) << failure.Description();
  other->Execute(IsPostgreSql() ? "commit" : "unlock tables");
  EXPECT_EQ(One("select a from t where k=1"), Value(std::int64_t{1}));
}

TEST_P(OdbcFailure, OfADeadlockSaysSo) {
  const auto first = database_.Connect(connection_);
  const auto second = database_.Connect(connection_);
  first->Execute("begin");
  second->Execute("begin");
  first->Execute("update t set a=2 where k=1");
  second->Execute("update t set a=2 where k=2");
  std::string ofFirst;
  std::thread waiting([&] {
    try {
      first->Execute("update t set a=2 where k=2");
    } catch (const Failure& failure) {
      ofFirst = failure.Description();
    }
  });
  std::string ofSecond;
  try {
    second->Execute("update t set a=2 where k=1");
  } catch (const Failure& failure) {
    ofSecond = failure.Description();
  }
  waiting.join();
  EXPECT_TRUE(SaysLocked(ofFirst) || SaysLocked(ofSecond)) << ofFirst << ofSecond;
  for (const std::string& description : {ofFirst, ofSecond}) {
    EXPECT_TRUE(description.empty() || SaysLocked(description)) << description;
  }
}

TEST_P(OdbcFailure, OfALogonShowsNoPassword) {
  const std::string wrong =
      "Driver={" + std::string(IsPostgreSql() ? "PostgreSQL" : "MariaDB") +
      " Unicode};Server=127.0.0.1;Port=" + std::to_string(PortOf(GetParam())) +
      ";Database=qbtd;UID=clerk;PWD=clerk";
  const Failure failure = FailureOf([&] { database_.OpenQuery(wrong, "select 1"); });
  EXPECT_EQ(failure.Number(), kDatabaseFailed);
  EXPECT_EQ(failure.Description().find("clerk"), std::string::npos) << failure.Description();
  EXPECT_FALSE(SaysLocked(failure.Description()));
}

TEST(OdbcSerialization, FailsAsALock) {
  OdbcDatabase database;
  const auto other = database.Connect(ConnectionOf(Server::kPostgreSql));
  other->Execute("drop table if exists s");
  other->Execute("create table s(a integer)");
  other->Execute("insert into s values(1)");
  other->Execute("begin isolation level repeatable read");
  other->Execute("select a from s");
  database.Connect(ConnectionOf(Server::kPostgreSql))->Execute("update s set a=3");
  const Failure failure = FailureOf([&] { other->Execute("update s set a=4"); });
  EXPECT_TRUE(SaysLocked(failure.Description())) << failure.Description();
}

TEST(OdbcSnapshot, FailsAsALock) {
  OdbcDatabase database;
  const auto other = database.Connect(ConnectionOf(Server::kMariaDb));
  other->Execute("drop table if exists s");
  other->Execute("create table s(a integer)");
  other->Execute("insert into s values(1)");
  other->Execute("set session innodb_snapshot_isolation=on");
  other->Execute("begin");
  other->Execute("select a from s");
  database.Connect(ConnectionOf(Server::kMariaDb))->Execute("update s set a=3");
  const Failure failure = FailureOf([&] { other->Execute("update s set a=4"); });
  EXPECT_TRUE(SaysLocked(failure.Description())) << failure.Description();
}

TEST(OdbcConnect, FailsClearlyWithoutServerOrDriver) {
  OdbcDatabase database;
  for (const char* connection :
       {"Provider=SQLOLEDB.1;Data Source=127.0.0.1,1;Initial Catalog=x;User ID=sa;Password=geheim",
        "Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=1;UID=a;PWD=geheim",
        "Driver={MariaDB Unicode};Server=127.0.0.1;Port=1;UID=a;PWD=geheim",
        "Driver={No Such Driver};PWD=geheim", "DSN=nowhere;PWD=geheim", "geheim"}) {
    const Failure failure = FailureOf([&] { database.Connect(connection); });
    EXPECT_EQ(failure.Number(), kDatabaseFailed) << connection;
    EXPECT_EQ(failure.Description().find("geheim"), std::string::npos) << failure.Description();
    EXPECT_FALSE(SaysLocked(failure.Description())) << failure.Description();
  }
}

}  // namespace
}  // namespace td
