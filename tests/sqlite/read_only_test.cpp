// Queries that people write for the print data: they change nothing.
#include <gtest/gtest.h>

#include "failure_of.h"
#include "sqlite/sqlite_database.h"
#include "temporary_database.h"

namespace td {
namespace {

class SqliteReadOnly : public testing::Test {
 protected:
  Value One(const std::string& sql) { return database_.OpenReadOnly(connection_, sql)->Field("a"); }

  void ExpectRefused(const std::string& sql) {
    const Failure failure = FailureOf([&] { (void)database_.OpenReadOnly(connection_, sql); });
    EXPECT_EQ(failure.Number(), kDatabaseFailed) << sql;
    EXPECT_EQ(
        One("select group_concat(a, ' ') || (select count(*) from sqlite_master) as a from t"),
        Value("1 22"))
        << sql;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.File("bills.db");
  std::string connection_ = MakeDatabase(
      path_, "create table t(a); insert into t values(1),(2); create view v as select a from t");
  SqliteDatabase database_;
};

TEST_F(SqliteReadOnly, QueriesOfEachKindDeliverTheirRows) {
  EXPECT_EQ(One("select a from v"), Value(std::int64_t{1}));
  EXPECT_EQ(One(" /* all */ with n as (select max(a) as a from t) select a from n;"),
            Value(std::int64_t{2}));
  EXPECT_EQ(database_.OpenReadOnly(connection_, "values(3)")->Field("column1"),
            Value(std::int64_t{3}));
  EXPECT_EQ(One("select 'update t set a=1 into x' as a"), Value("update t set a=1 into x"));
  EXPECT_EQ(One("with recursive n(a) as (values(1) union all select a+1 from n where a<9) "
                "select max(a) as a from n"),
            Value(std::int64_t{9}));
}

TEST_F(SqliteReadOnly, WhatWouldChangeAnythingIsRefusedAndHasNotRun) {
  for (const char* sql : {"update t set a=9",
                          "delete from t",
                          "delete from t returning *",
                          "insert into t values(9) returning a",
                          "replace into t values(9)",
                          "with n(a) as (values(9)) insert into t select a from n returning a",
                          "with n(a) as (values(9)) update t set a=9 returning a",
                          "create table u(a)",
                          "drop table t",
                          "drop view v",
                          "vacuum",
                          "reindex",
                          "analyze",
                          "begin",
                          "commit",
                          "attach 'other.db' as o",
                          "pragma user_version=7",
                          "pragma journal_mode=wal",
                          "pragma writable_schema=1",
                          "explain select 1",
                          ";",
                          ""}) {
    ExpectRefused(sql);
  }
}

TEST_F(SqliteReadOnly, AStatementThatWasExecutedBeforeIsRefusedAllTheSame) {
  const std::string sql = "update t set a=a returning a";
  database_.OpenQuery(connection_, sql);
  ExpectRefused(sql);
}

TEST_F(SqliteReadOnly, TheRunItselfStillWrites) {
  One("select a from t");
  database_.Connect(connection_)->Execute("update t set a=5");
  EXPECT_EQ(One("select a from t"), Value(std::int64_t{5}));
}

TEST_F(SqliteReadOnly, TheRefusalNamesWhatIsNoQuery) {
  const std::string said = FailureOf([&] {
                             (void)database_.OpenReadOnly(connection_, "update t set a=9");
                           }).Description();
  EXPECT_NE(said.find("“update”不是查询"), std::string::npos) << said;
}

}  // namespace
}  // namespace td
