#include <gtest/gtest.h>

#include <limits>

#include "failure_of.h"
#include "sqlite/sqlite_database.h"
#include "temporary_database.h"

namespace td {
namespace {

class SqliteValues : public testing::Test {
 protected:
  RecordsetRef Open(const std::string& sql) { return database_.OpenQuery(connection_, sql); }
  Value One(const std::string& expression) {
    return Open("select " + expression + " as FValue")->Field("FValue");
  }

  TemporaryFolder folder_;
  std::string connection_ = MakeDatabase(folder_.File("values.db"), "create table t(a)");
  SqliteDatabase database_;
};

TEST_F(SqliteValues, KeepTheirKind) {
  EXPECT_EQ(One("null"), Value(Null{}));
  EXPECT_EQ(One("9223372036854775807"), Value(std::numeric_limits<std::int64_t>::max()));
  EXPECT_EQ(One("-3"), Value(std::int64_t{-3}));
  EXPECT_EQ(One("2.0"), Value(2.0));
  EXPECT_EQ(One("0.1"), Value(0.1));
  EXPECT_EQ(One("'12'"), Value("12"));
  EXPECT_EQ(One("''"), Value(""));
  EXPECT_EQ(One("'销售'"), Value("销售"));
  EXPECT_EQ(One("x''"), Value(Bytes{}));
  EXPECT_EQ(One("x'00FF'"), Value(Bytes{std::byte{0}, std::byte{0xFF}}));
}

TEST_F(SqliteValues, OfDateColumnsStayTheTextThatIsStored) {
  OtherUser(folder_.File("values.db"))
      .Run("create table d(FDate datetime); insert into d values('2024-05-06 07:08:09')");
  EXPECT_EQ(Open("select * from d")->Field("FDate"), Value("2024-05-06 07:08:09"));
}

TEST_F(SqliteValues, KeepANulInsideAText) {
  EXPECT_EQ(One("cast(x'610062' as text)"), Value(std::string("a\0b", 3)));
}

TEST_F(SqliteValues, ReplaceBytesThatAreNoUtf8) {
  EXPECT_EQ(One("cast(x'61B5A5' as text)"), Value("a\uFFFD\uFFFD"));
}

TEST_F(SqliteValues, ComeFromDatabasesInOtherEncodings) {
  const std::string connection = MakeDatabase(
      folder_.File("wide.db"),
      "pragma encoding='UTF-16'; create table t(a); insert into t values('销售\U0001F5A8')");
  const RecordsetRef rows = database_.OpenQuery(connection, "select left(a,2) as b, a from t");
  EXPECT_EQ(rows->Field("a"), Value("销售\U0001F5A8"));
  EXPECT_EQ(rows->Field("b"), Value("销售"));
}

TEST_F(SqliteValues, OfTwentyMegabytesArriveWhole) {
  OtherUser(folder_.File("values.db")).Run("insert into t values(randomblob(20971520))");
  const RecordsetRef rows = Open("select a, length(a) as FLength from t");
  EXPECT_EQ(std::get<Bytes>(rows->Field("a")).size(), 20971520U);
  EXPECT_EQ(rows->Field("FLength"), Value(std::int64_t{20971520}));
}

TEST_F(SqliteValues, OfThousandsOfColumnsAndRowsAreFound) {
  std::string sql =
      "with recursive n(i) as (select 1 union all select i+1 from n where i<500) "
      "select i";
  for (int column = 1; column < 2000; ++column) {
    sql += "," + std::to_string(column) + "+i as C" + std::to_string(column);
  }
  const RecordsetRef rows = Open(sql + " from n");
  std::int64_t count = 0;
  for (; !rows->Eof(); rows->MoveNext()) {
    ++count;
    EXPECT_EQ(rows->Field("c1999"), Value(1999 + count));
  }
  EXPECT_EQ(count, 500);
}

TEST_F(SqliteValues, ReferToTheCurrentRowUntilTheCursorMoves) {
  const RecordsetRef rows = Open("select 'first' as a, 'second' as b union all select 'x','y'");
  const Value& first = rows->Field("a");
  const Value& second = rows->Field("b");
  rows->Clone()->MoveNext();
  EXPECT_EQ(first, Value("first"));
  EXPECT_EQ(second, Value("second"));
}

TEST_F(SqliteValues, OfAColumnDeliveredTwiceAreTheFirstOnes) {
  EXPECT_EQ(Open("select x.a as FName, y.a as fname from (select 1 as a) x, (select 2 as a) y")
                ->Field("FNAME"),
            Value(std::int64_t{1}));
}

TEST_F(SqliteValues, HaveColumnsEvenWithoutRows) {
  const RecordsetRef rows = Open("select a from t");
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(FailureOf([&] { rows->Field("A"); }).Number(), kNoCurrentRow);
  EXPECT_EQ(FailureOf([&] { rows->Field("b"); }).Number(), kNoSuchColumn);
}

TEST_F(SqliteValues, AreASnapshotThatKeepsNoWriterOut) {
  OtherUser other(folder_.File("values.db"));
  other.Run("insert into t values(1),(2)");
  const RecordsetRef rows = Open("select a from t order by a");
  other.Run("delete from t; drop table t; vacuum");
  rows->MoveNext();
  EXPECT_EQ(rows->Field("a"), Value(std::int64_t{2}));
  rows->MoveFirst();
  EXPECT_EQ(rows->Field("a"), Value(std::int64_t{1}));
}

TEST_F(SqliteValues, OfIsnullAreTheFirstThatIsThere) {
  EXPECT_EQ(One("isnull(null,'x')"), Value("x"));
  EXPECT_EQ(One("ISNULL('', 'x')"), Value(""));
  EXPECT_EQ(One("isnull(1.5,2)"), Value(1.5));
  EXPECT_EQ(One("isnull(isnull(null,null),x'01')"), Value(Bytes{std::byte{1}}));
  EXPECT_EQ(One("(null isnull)"), Value(std::int64_t{1}));
}

TEST_F(SqliteValues, OfLeftAreTheFirstCharacters) {
  EXPECT_EQ(One("left('仓库A1',1)"), Value("仓"));
  EXPECT_EQ(One("Left ('\U0001F5A8b',1)"), Value("\U0001F5A8"));
  EXPECT_EQ(One("left('ab',5)"), Value("ab"));
  EXPECT_EQ(One("left('ab',0)"), Value(""));
  EXPECT_EQ(One("left(1234,2)"), Value("12"));
  EXPECT_EQ(One("left(null,1)"), Value(Null{}));
  EXPECT_EQ(One("left('ab',null)"), Value(Null{}));
  EXPECT_EQ(FailureOf([&] { One("left('ab',-1)"); }).Number(), kDatabaseFailed);
  EXPECT_EQ(FailureOf([&] { One("left('ab','x')"); }).Number(), kDatabaseFailed);
}

}  // namespace
}  // namespace td
