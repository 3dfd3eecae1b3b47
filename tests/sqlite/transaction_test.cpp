// Transactions of the embedded database, and values in statements.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "failure_of.h"
#include "platform/standard_failures.h"
#include "sql_support/sql_literal.h"
#include "sqlite/sqlite_database.h"
#include "temporary_database.h"

namespace td {
namespace {

class SqliteTransactions : public testing::Test {
 protected:
  [[nodiscard]] std::unique_ptr<Transaction> Begin(Access access = Access::kReadWrite) {
    return database_.Begin(connection_, access);
  }
  Value Count() {
    return database_.OpenQuery(connection_, "select count(*) as a from t")->Field("a");
  }

  TemporaryFolder folder_;
  std::string connection_ = MakeDatabase(
      folder_.File("a.db"),
      "create table t(n, b); create table k(Id integer primary key, x);"
      "create table two(x integer, y integer, z text, primary key(z, x)) without rowid;");
  SqliteDatabase database_;
};

TEST_F(SqliteTransactions, TakeEffectTogetherOrNotAtAll) {
  { Begin()->Run("insert into t values(1,2)"); }
  EXPECT_EQ(Count(), Value(std::int64_t{0}));
  const auto transaction = Begin();
  transaction->Run("insert into t values(1,2)");
  EXPECT_EQ(transaction->Run("select * from t")->RowCount(), 1U);
  EXPECT_EQ(Count(), Value(std::int64_t{0}));
  transaction->Commit();
  EXPECT_EQ(Count(), Value(std::int64_t{1}));
}

TEST_F(SqliteTransactions, ThatOnlyReadChangeNothingAndKeepNobodyWaiting) {
  const auto reader = Begin(Access::kReadOnly);
  EXPECT_EQ(reader->Run("select * from t")->RowCount(), 0U);
  EXPECT_THROW(reader->Run("delete from t"), Failure);
  EXPECT_NO_THROW(Begin()->Run("insert into t values(1,2)"));
}

TEST_F(SqliteTransactions, MeetALockAtTheirBeginning) {
  const auto first = Begin();
  EXPECT_TRUE(IsLockConflict(FailureOf([&] { (void)Begin(); })));
}

TEST_F(SqliteTransactions, TellTheKeyOfATable) {
  const auto keys = Begin()->PrimaryKey("K");
  ASSERT_EQ(keys.size(), 1U);
  EXPECT_EQ(keys[0].name, "Id");
  EXPECT_TRUE(keys[0].isGenerated);
  const auto two = Begin()->PrimaryKey("two");
  ASSERT_EQ(two.size(), 2U);
  EXPECT_EQ(two[0].name + two[1].name, "zx");
  EXPECT_FALSE(two[0].isGenerated || two[1].isGenerated);
  EXPECT_TRUE(Begin()->PrimaryKey("t").empty());
}

TEST_F(SqliteTransactions, WriteEachValueInItsKind) {
  const auto transaction = Begin();
  for (const Value& value :
       {Value(Null{}), Value(std::int64_t{-7}), Value(std::numeric_limits<std::int64_t>::max()),
        Value(0.1 + 0.2), Value(566.0), Value(1e300), Value(-5e-324),
        Value(std::string("it's \"\\ “套打”")), Value(Bytes{std::byte{0}, std::byte{255}}),
        Value(Bytes{})}) {
    transaction->Run("delete from t");
    transaction->Run("insert into t values(" + transaction->Literal(value) + ",0)");
    Value stored;
    transaction->Run("select n from t")->Read(0, 0, stored);
    EXPECT_EQ(stored, value);
  }
}

TEST(SqlLiteral, WritesDatesWithTheirFractions) {
  EXPECT_EQ(SqlLiteral(Date{45000}, {}), "'2023-03-15'");
  EXPECT_EQ(SqlLiteral(Date{45000.5}, {}), "'2023-03-15 12:00:00'");
  EXPECT_EQ(SqlLiteral(Date{45000.5 + 0.25 / 86400}, {}), "'2023-03-15 12:00:00.250000'");
  EXPECT_EQ(SqlLiteral(Date{45000 + 0.001 / 86400}, {}), "'2023-03-15 00:00:00.001000'");
}

TEST(SqlLiteral, ANumberThatIsNoneIsNull) {
  EXPECT_EQ(SqlLiteral(std::nan(""), {}), "null");
  EXPECT_EQ(SqlLiteral(true, {}), "1");
}

}  // namespace
}  // namespace td
