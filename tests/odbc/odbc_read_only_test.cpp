// Queries that people write for the print data: they change nothing.
#include "odbc_fixture.h"
#include "scratch_folder.h"

namespace td {
namespace {

class OdbcReadOnly : public OnEachServer {
 protected:
  void SetUp() override {
    MakeTable("t", "a integer");
    Execute("insert into t values(1),(2)");
  }

  Value OneReadOnly(const std::string& sql) {
    return database_.OpenReadOnly(connection_, sql)->Field("a");
  }

  void ExpectRefused(const std::string& sql) {
    const Failure failure = FailureOf([&] { (void)database_.OpenReadOnly(connection_, sql); });
    EXPECT_EQ(failure.Number(), kDatabaseFailed) << sql;
    EXPECT_EQ(failure.Description().find("锁"), std::string::npos) << failure.Description();
    EXPECT_EQ(One("select sum(a)*10+count(*) as a from t"), One("select 32 as a")) << sql;
  }

  ScratchFolder scratch_;
};
INSTANTIATE_TEST_SUITE_P(Servers, OdbcReadOnly,
                         testing::Values(Server::kPostgreSql, Server::kMariaDb), NameOfServer);

TEST_P(OdbcReadOnly, QueriesOfEachKindDeliverTheirRows) {
  const Value two = One("select 2 as a");
  EXPECT_EQ(OneReadOnly("select max(a) as a from t"), two);
  EXPECT_EQ(OneReadOnly("with n as (select 2 as a) select a from n -- all\n;"), two);
  EXPECT_EQ(OneReadOnly("(select 2 as a) union (select 2)"), two);
  EXPECT_EQ(OneReadOnly("select a from t order by a desc"), two);
  EXPECT_EQ(OneReadOnly("select 'update t into x' as a"), Value("update t into x"));
}

TEST_P(OdbcReadOnly, WhatWouldChangeAnythingIsRefusedAndHasNotRun) {
  for (const char* sql :
       {"update t set a=9", "delete from t", "insert into t values(9)", "delete from t returning *",
        "insert into t values(9) returning a", "create table u(a integer)", "drop table t",
        "truncate table t", "begin", "commit", "set lock_timeout=1", "call p()",
        "select a into u from t", "select a from t for update", "explain analyze delete from t",
        "select 1; delete from t", ""}) {
    ExpectRefused(sql);
  }
}

TEST_P(OdbcReadOnly, WhatAFunctionWouldChangeIsRefused) {
  Execute("drop sequence if exists numbering");
  Execute("create sequence numbering");
  const std::string function =
      IsPostgreSql() ? "create or replace function empty_t() returns integer language plpgsql as "
                       "$$ begin delete from t; return 1; end $$;\n"
                     : "drop function if exists empty_t;\ndelimiter //\ncreate function empty_t() "
                       "returns integer begin delete from t; return 1; end//\n";
  RunScript(GetParam(), scratch_.Write("function.sql", function));
  ExpectRefused("select empty_t() as a");
  if (IsPostgreSql()) {
    ExpectRefused("select nextval('numbering') as a");
    ExpectRefused("with d as (delete from t returning a) select a from d");
    ExpectRefused("select set_config('transaction_read_only','off',false) as a, empty_t() as b");
  } else {
    ExpectRefused("select nextval(numbering) as a");
    ExpectRefused("select a from t into outfile 'rows.txt'");
  }
}

TEST_P(OdbcReadOnly, TheSameConnectionWritesAfterwardsAndReadsInItsOrder) {
  OneReadOnly("select a from t order by a");
  Execute("update t set a=a+10 where a=1");
  EXPECT_EQ(OneReadOnly("select max(a) as a from t"), One("select 11 as a"));
  Execute("update t set a=1 where a=11");
}

TEST_P(OdbcReadOnly, ConnectsAnewWhenTheServerWasRestarted) {
  OneReadOnly("select a from t");
  StopServer(GetParam());
  StartServer(GetParam());
  EXPECT_EQ(OneReadOnly("with n as (select 2 as a) select a from n"), One("select 2 as a"));
}

}  // namespace
}  // namespace td
