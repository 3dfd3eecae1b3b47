#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "odbc/odbc_session.h"
#include "odbc_fixture.h"
#include "sql_support/session_pool.h"

namespace td {
namespace {

class OdbcPool : public OnEachServer {
 protected:
  void SetUp() override {
    MakeTable("t", "a integer, b integer");
    Execute("insert into t values(1,2)");
  }
};
INSTANTIATE_TEST_SUITE_P(Servers, OdbcPool, testing::Values(Server::kPostgreSql, Server::kMariaDb),
                         NameOfServer);

TEST_P(OdbcPool, UsesAConnectionAgain) {
  SessionPool<OdbcSession> pool;
  auto session = pool.Take(connection_);
  const OdbcSession* const first = session.get();
  session->Run("select a from t");
  pool.GiveBack(connection_, std::move(session));
  EXPECT_EQ(pool.Take(connection_).get(), first);
}

TEST_P(OdbcPool, DropsAConnectionAfterAFailure) {
  OdbcSession session(connection_);
  EXPECT_TRUE(session.Reusable());
  EXPECT_THROW(session.Run("select nothing"), Failure);
  EXPECT_FALSE(session.Reusable());
}

TEST_P(OdbcPool, SeesColumnsThatOthersHaveChanged) {
  EXPECT_EQ(One("select * from t"), Value(std::int64_t{1}));
  Execute("alter table t drop column a");
  Execute("alter table t add column c varchar(9)");
  Execute("alter table t add column a varchar(9)");
  Execute("update t set a='x'");
  EXPECT_EQ(One("select * from t"), Value("x"));
}

TEST_P(OdbcPool, HandsOnNoTransactionAndNoSetting) {
  {
    const auto connection = database_.Connect(connection_);
    connection->Execute("create temporary table u(a integer)");
    connection->Execute("begin");
    connection->Execute("update t set a=6");
  }
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{1}));
  Fails("select a from u");
}

TEST_P(OdbcPool, CarriesOutAQueryThatDeliversNoRows) {
  const RecordsetRef rows = Open("update t set a=8");
  EXPECT_EQ(FailureOf([&] { rows->Eof(); }).Number(), kObjectClosed);
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{8}));
  Execute("update t set a=9 where a=0");
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{8}));
}

TEST_P(OdbcPool, GoesOnAfterTheServerWasRestarted) {
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{1}));
  const auto open = database_.Connect(connection_);
  open->Execute("update t set a=2");
  StopServer(GetParam());
  Fails("select a from t");
  EXPECT_THROW(database_.Connect(connection_), Failure);
  StartServer(GetParam());
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{2}));
  EXPECT_THROW(open->Execute("update t set a=3"), Failure);
  StopServer(GetParam());
  StartServer(GetParam());
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{2}));
  One("select a from t");
  StopServer(GetParam());
  StartServer(GetParam());
  Execute("update t set a=4");
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{4}));
}

TEST(OdbcTableNames, AreReadOnceForEachConnection) {
  const std::string connection = ConnectionOf(Server::kMariaDb);
  OdbcDatabase database;
  database.Connect(connection)->Execute("drop table if exists Later");
  (void)database.OpenQuery(connection, "select 1 as a");
  OdbcDatabase other;
  other.Connect(connection)->Execute("create table Later(a integer)");
  EXPECT_TRUE(database.OpenQuery(connection, "select a from Later")->Eof());
  EXPECT_THROW(database.OpenQuery(connection, "select a from LATER"), Failure);
  EXPECT_TRUE(database.OpenQuery(connection, "select a from LATER")->Eof());
}

TEST_P(OdbcPool, ServesSeveralThreads) {
  const auto read = [this] {
    for (int i = 0; i < 100; ++i) EXPECT_EQ(One("select a from t"), Value(std::int64_t{1}));
  };
  std::thread first(read);
  std::thread second(read);
  first.join();
  second.join();
}

TEST_P(OdbcPool, ConnectsByAnOlderProvidersText) {
  const std::string driver = IsPostgreSql() ? "PostgreSQL Unicode" : "MariaDB Unicode";
  connection_ = "Provider=MSDASQL.1;Extended Properties=\"Driver={" + driver +
                "};Server=127.0.0.1;Port=" + std::to_string(PortOf(GetParam())) +
                "\";Initial Catalog=qbtd;User ID=clerk;Password=\"" + kServerPassword + "\"";
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{1}));
}

TEST_P(OdbcPool, ConnectsToADataSourceByItsName) {
  std::string folder = (std::filesystem::temp_directory_path() / "qbtd-dsn-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  const std::filesystem::path file = std::filesystem::path(folder) / "odbc.ini";
  const std::string name = IsPostgreSql() ? "shop1" : "shop2";  // names are kept for a while
  std::ofstream(file) << "[" << name << "]\nDriver=" << (IsPostgreSql() ? "PostgreSQL" : "MariaDB")
                      << " Unicode\nServername=127.0.0.1\nServer=127.0.0.1\nPort="
                      << PortOf(GetParam()) << "\nDatabase=qbtd\n";
  setenv("ODBCINI", file.c_str(), 1);
  connection_ = "DSN=" + name + ";UID=clerk;PWD={geheim;}}1}";
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{1}));
  connection_ =
      "Provider=MSDASQL;Data Source=" + name + ";User ID=clerk;Password='" + kServerPassword + "'";
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{1}));
  unsetenv("ODBCINI");
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace td
