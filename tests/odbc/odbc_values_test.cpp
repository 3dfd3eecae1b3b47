#include <cmath>

#include "odbc_fixture.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

class OdbcValues : public OnEachServer {};
INSTANTIATE_TEST_SUITE_P(Servers, OdbcValues,
                         testing::Values(Server::kPostgreSql, Server::kMariaDb), NameOfServer);

TEST_P(OdbcValues, KeepTheirKind) {
  EXPECT_EQ(One("select null as a"), Value(Null{}));
  EXPECT_EQ(One("select 9223372036854775807 as a"), Value(std::int64_t{9223372036854775807}));
  EXPECT_EQ(One("select -3 as a"), Value(std::int64_t{-3}));
  EXPECT_EQ(One("select 12.25 as a"), Value(12.25));
  EXPECT_EQ(One("select cast(123456789012.345 as decimal(15,3)) as a"), Value(123456789012.345));
  EXPECT_EQ(One("select cast(-7 as decimal(10,0)) as a"), Value(std::int64_t{-7}));
  EXPECT_EQ(One("select '' as a"), Value(""));
  EXPECT_EQ(One("select '12' as a"), Value("12"));
  EXPECT_EQ(One("select '销售\U0001F5A8' as a"), Value("销售\U0001F5A8"));
}

// Rows come in blocks; a block ends before, with and behind the last row.
TEST_P(OdbcValues, OfManyRowsComeInTheirOrder) {
  MakeTable("many", "n integer, t varchar(20), x decimal(9,2)");
  for (const int count : {0, 31, 32, 33, 100}) {
    Execute("delete from many");
    for (int n = 0; n < count; ++n) {
      const std::string number = std::to_string(n);
      Execute("insert into many values(" + number + ",'" + (n % 3 == 0 ? "第" + number : number) +
              "'," + (n % 5 == 0 ? "null" : number) + ")");
    }
    const RecordsetRef rows = Open("select * from many order by n");
    for (int n = 0; n < count; ++n, rows->MoveNext()) {
      ASSERT_EQ(rows->Field("n"), Value(std::int64_t{n}));
      EXPECT_EQ(rows->Field("t"), Value((n % 3 == 0 ? "第" : "") + std::to_string(n)));
      EXPECT_EQ(rows->Field("x"), n % 5 == 0 ? Value(Null{}) : Value(static_cast<double>(n)));
    }
    EXPECT_TRUE(rows->Eof());
  }
}

// A driver may tell a length that a computed text exceeds.
TEST_P(OdbcValues, LongerThanTheDriverSaysComeWhole) {
  std::string text;
  for (int i = 0; i < 700; ++i) text += "长";
  EXPECT_EQ(One("select repeat('长', 700) as a"), Value(text));
  const RecordsetRef rows =
      Open("select 'short' as a union all select repeat('x', 300) order by 1");
  EXPECT_EQ(rows->Field("a"), Value("short"));
  rows->MoveNext();
  EXPECT_EQ(rows->Field("a"), Value(std::string(300, 'x')));
}

TEST_P(OdbcValues, OfNumberColumnsAreNumbers) {
  MakeTable("numbers", "s smallint, i integer, b bigint, r real, d double precision, f float(24)");
  Execute("insert into numbers values(-2,3,4,0.1,0.1,0.1)");
  const RecordsetRef rows = Open("select * from numbers");
  EXPECT_EQ(rows->Field("S"), Value(std::int64_t{-2}));
  EXPECT_EQ(rows->Field("I"), Value(std::int64_t{3}));
  EXPECT_EQ(rows->Field("B"), Value(std::int64_t{4}));
  EXPECT_EQ(rows->Field("R"), Value(0.1));
  EXPECT_EQ(rows->Field("D"), Value(0.1));
  EXPECT_EQ(rows->Field("F"), Value(0.1));
}

TEST(OdbcUnsignedValues, AreWholeNumbersAsFarAsTheyGo) {
  OdbcDatabase database;
  const std::string connection = ConnectionOf(Server::kMariaDb);
  const auto execute = [&](const char* sql) { database.Connect(connection)->Execute(sql); };
  execute("drop table if exists naturals");
  execute("create table naturals(t tinyint unsigned, i int unsigned, b bigint unsigned)");
  execute("insert into naturals values(255,4294967295,18446744073709551615)");
  const RecordsetRef rows = database.OpenQuery(connection, "select * from naturals");
  EXPECT_EQ(rows->Field("t"), Value(std::int64_t{255}));
  EXPECT_EQ(rows->Field("i"), Value(std::int64_t{4294967295}));
  EXPECT_EQ(rows->Field("b"), Value(18446744073709551615.0));
}

TEST_P(OdbcValues, OfDatesAreDates) {
  EXPECT_EQ(One("select cast('2024-05-06' as date) as a"), Value(Date{45418}));
  EXPECT_EQ(One("select cast('1899-12-30' as date) as a"), Value(Date{0}));
  const std::string type = IsPostgreSql() ? "timestamp" : "datetime";
  EXPECT_EQ(One("select cast('2024-05-06 18:00:00' as " + type + ") as a"), Value(Date{45418.75}));
  EXPECT_EQ(One("select cast('1899-12-29 06:00:00' as " + type + ") as a"), Value(Date{-1.25}));
  EXPECT_EQ(One("select cast('12:00:00' as time) as a"), Value(Date{0.5}));
  EXPECT_EQ(One("select cast('23:59:59' as time) as a"), Value(Date{86399.0 / 86400}));
  EXPECT_EQ(One("select cast(null as time) as a"), Value(Null{}));
}

TEST_P(OdbcValues, OfTimesThatAreNoneOfADayAreTexts) {
  const std::vector<std::string> times =
      IsPostgreSql() ? std::vector<std::string>{"24:00:00"}
                     : std::vector<std::string>{"24:00:00", "25:30:00", "-02:30:00", "838:59:59"};
  MakeTable("spans", "a time");
  for (const std::string& time : times) {
    Execute("delete from spans");
    Execute("insert into spans values('" + time + "')");
    EXPECT_EQ(One("select a from spans"), Value(time));
  }
}

TEST_P(OdbcValues, OfFlagsAreFlags) {
  MakeTable("flags", IsPostgreSql() ? "k integer, a boolean" : "k integer, a bit(1)");
  Execute(IsPostgreSql() ? "insert into flags values(1,true),(2,false),(3,null)"
                         : "insert into flags values(1,b'1'),(2,b'0'),(3,null)");
  EXPECT_EQ(One("select a from flags where k=1"), Value(true));
  EXPECT_EQ(One("select a from flags where k=2"), Value(false));
  EXPECT_EQ(One("select a from flags where k=3"), Value(Null{}));
  if (IsPostgreSql()) {
    EXPECT_EQ(One("select 1<2 as a"), Value(true));
  }
}

TEST_P(OdbcValues, OfTextsHaveAnyLength) {
  for (const int count : {2047, 2048, 2049, 100000}) {
    const std::string repeated = "repeat('中\U0001F5A8b'," + std::to_string(count) + ")";
    const Value value = One("select " + repeated + " as a");
    std::string expected;
    for (int i = 0; i < count; ++i) expected += "中\U0001F5A8b";
    EXPECT_TRUE(value == Value(expected)) << count;
  }
}

TEST_P(OdbcValues, OfTextsHoldEveryCharacterOfCommonUse) {
  std::u16string characters;
  for (char16_t character = 0x4E00; character < 0xA000; ++character) characters += character;
  const std::string text = ToUtf8(characters);
  EXPECT_TRUE(One("select '" + text + "' as a") == Value(text));
  EXPECT_EQ(One("select '货到付款' as a"), Value("货到付款"));
  EXPECT_EQ(One("select '付' as a"), Value("付"));
}

TEST_P(OdbcValues, OfTwentyMegabytesArriveWhole) {
  MakeTable("blobs", IsPostgreSql() ? "a bytea" : "a longblob");
  Execute(IsPostgreSql() ? "insert into blobs select decode(repeat('00FF80',7000000),'hex')"
                         : "insert into blobs select unhex(repeat('00FF80',7000000))");
  const Value value = One("select a from blobs");
  const Bytes& bytes = std::get<Bytes>(value);
  ASSERT_EQ(bytes.size(), 21000000U);
  EXPECT_EQ(bytes[20999997], std::byte{0});
  EXPECT_EQ(bytes[20999999], std::byte{0x80});
  Execute(IsPostgreSql() ? "update blobs set a=''" : "update blobs set a=x''");
  EXPECT_EQ(One("select a from blobs"), Value(Bytes{}));
  Execute("update blobs set a=null");
  EXPECT_EQ(One("select a from blobs"), Value(Null{}));
}

TEST_P(OdbcValues, AreFoundWithoutRegardToCaseAndTheFirstOfTwo) {
  const RecordsetRef rows = Open("select 1 as FQty, 2 as fqty, 3 as \"FPrice\"");
  EXPECT_EQ(rows->Field("FQTY"), Value(std::int64_t{1}));
  EXPECT_EQ(rows->Field("fprice"), Value(std::int64_t{3}));
  EXPECT_EQ(FailureOf([&] { rows->Field("FNone"); }).Number(), kNoSuchColumn);
}

TEST_P(OdbcValues, OfHundredsOfColumnsAreFoundInEveryRow) {
  MakeTable("counts", "i integer");
  Execute("insert into counts values(1),(2),(3),(4),(5),(6),(7),(8),(9),(10)");
  std::string sql = "select x.i as a";
  for (int column = 1; column < 500; ++column) {
    sql += "," + std::to_string(column) + "+x.i as C" + std::to_string(column);
  }
  const RecordsetRef rows = Open(sql + " from counts x, counts y order by x.i");
  int count = 0;
  for (; !rows->Eof(); rows->MoveNext()) {
    const Value expected(std::int64_t{500 + count++ / 10});
    EXPECT_EQ(rows->Field("c499"), expected);
  }
  EXPECT_EQ(count, 100);
}

TEST_P(OdbcValues, AreASnapshotThatKeepsNoWriterOut) {
  MakeTable("t", "a integer");
  Execute("insert into t values(1),(2)");
  const RecordsetRef rows = Open("select a from t order by a");
  Execute("drop table t");
  const RecordsetRef clone = rows->Clone();
  rows->MoveNext();
  EXPECT_EQ(rows->Field("a"), Value(std::int64_t{2}));
  EXPECT_EQ(clone->Field("a"), Value(std::int64_t{1}));
}

TEST_P(OdbcValues, KeepBackslashesBracesAndQuestionMarks) {
  MakeTable("t", "a varchar(100)");
  for (const char* text : {"\\\\server\\p", "C:\\", "?", "{d x}", "[x]", "a;b", "--"}) {
    Execute("delete from t");
    Execute("insert into t values('" + std::string(text) + "')");
    EXPECT_EQ(One("select a from t where a='" + std::string(text) + "'"), Value(text));
  }
}

}  // namespace
}  // namespace td
