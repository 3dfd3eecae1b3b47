// Transactions of server databases.
#include <gtest/gtest.h>

#include "odbc/engine_dialect.h"
#include "odbc_fixture.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

class OdbcTransactions : public OnEachServer {
 protected:
  OdbcTransactions() { MakeTable("Pairs", "a integer not null primary key, b varchar(40)"); }

  [[nodiscard]] std::unique_ptr<Transaction> Begin(Access access = Access::kReadWrite) {
    return database_.Begin(connection_, access);
  }
  std::int64_t Count() { return std::get<std::int64_t>(One("select count(*) as a from Pairs")); }
};

INSTANTIATE_TEST_SUITE_P(Servers, OdbcTransactions,
                         testing::Values(Server::kPostgreSql, Server::kMariaDb), NameOfServer);

TEST_P(OdbcTransactions, TakeEffectTogether) {
  const auto transaction = Begin();
  transaction->Run("insert into Pairs values(1,'x')");
  EXPECT_EQ(transaction->Run("select * from Pairs")->RowCount(), 1U);
  EXPECT_EQ(Count(), 0);
  transaction->Run("insert into Pairs values(2,'y')");
  transaction->Commit();
  EXPECT_EQ(Count(), 2);
}

// A driver committed what a statement had begun when the cursor of a query closed.
TEST_P(OdbcTransactions, LeaveNothingBehindWithoutACommit) {
  {
    const auto transaction = Begin();
    transaction->Run("select * from Pairs");
    transaction->Run("insert into Pairs values(1,'x')");
    transaction->Run("select * from Pairs");
  }
  EXPECT_EQ(Count(), 0);
  {
    const auto transaction = Begin();
    transaction->Run("insert into Pairs values(1,'x')");
    EXPECT_THROW(transaction->Run("insert into Pairs values(1,'x')"), Failure);
  }
  EXPECT_EQ(Count(), 0);
}

TEST_P(OdbcTransactions, ThatOnlyReadSeeTheTablesAsTheyWere) {
  const auto transaction = Begin(Access::kReadOnly);
  EXPECT_EQ(transaction->Run("select * from Pairs")->RowCount(), 0U);
  Execute("insert into Pairs values(1,'x')");
  EXPECT_EQ(transaction->Run("select * from Pairs")->RowCount(), 0U);
}

TEST_P(OdbcTransactions, WaitForAnotherAndSaySo) {
  Execute("insert into Pairs values(1,'x')");
  const auto first = Begin();
  first->Run("update Pairs set b='y' where a=1");
  const auto second = Begin();
  try {
    second->Run("update Pairs set b='z' where a=1");
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_TRUE(IsLockConflict(failure)) << failure.Description();
  }
}

TEST_P(OdbcTransactions, TellTheKeyOfATable) {
  const auto keysOf = [&](const std::string& table) {
    std::string keys;
    for (const KeyColumn& key : Begin()->PrimaryKey(table)) {
      keys += key.name + (key.isGenerated ? "+" : "") + " ";
    }
    return keys;
  };
  EXPECT_EQ(keysOf("PAIRS"), "a ");
  MakeTable("Keyless", "a integer");
  EXPECT_EQ(keysOf("Keyless"), "");
  MakeTable("Numbered", IsPostgreSql() ? "n serial primary key, x integer"
                                       : "n integer auto_increment primary key, x integer");
  EXPECT_EQ(keysOf("Numbered"), "n+ ");
  MakeTable("Two", "x integer, y integer, z integer, primary key(z, x)");
  EXPECT_EQ(keysOf("Two"), "z x ");
}

TEST_P(OdbcTransactions, WriteEachValueAsItIs) {
  MakeTable("Kinds", std::string("n integer, r double precision, t varchar(60), d timestamp null, "
                                 "f ") +
                         (IsPostgreSql() ? "boolean, y bytea" : "tinyint, y longblob"));
  const auto transaction = Begin();
  const std::vector<Value> values = {
      std::int64_t{-7}, 0.1 + 0.2,       std::string("it's \\ “套打” %s ? {x}"),
      Date{45000.5},    std::int64_t{1}, Bytes{std::byte{0}, std::byte{255}, std::byte{39}}};
  std::string literals;
  for (const Value& value : values) {
    literals += (literals.empty() ? "" : ",") + transaction->Literal(value);
  }
  transaction->Run("insert into Kinds values(" + literals + ")");
  const auto rows = transaction->Run("select * from Kinds");
  for (std::size_t column = 0; column < values.size(); ++column) {
    Value value;
    rows->Read(0, column, value);
    const bool isFlag = std::holds_alternative<bool>(value);
    EXPECT_EQ(isFlag ? Value(std::int64_t{std::get<bool>(value) ? 1 : 0}) : value, values[column])
        << rows->Columns().Name(column);
  }
}

TEST(EngineDialect, WritesValuesAsTheEngineReadsThem) {
  const LiteralForm sqlServer = LiteralFormOf(Engine::kSqlServer);
  EXPECT_EQ(SqlLiteral(std::string("it's"), sqlServer), "N'it''s'");
  EXPECT_EQ(SqlLiteral(Bytes{std::byte{0xA0}}, sqlServer), "0xA0");
  EXPECT_EQ(SqlLiteral(2.5, sqlServer), "2.5");
  EXPECT_EQ(SqlLiteral(2.5, LiteralFormOf(Engine::kPostgreSql)), "'2.5'");
  EXPECT_EQ(SqlLiteral(Bytes{std::byte{0xA0}}, LiteralFormOf(Engine::kPostgreSql)), "'\\xA0'");
}

TEST(EngineDialect, AsksEachEngineForItsKeysInItsOwnWay) {
  EXPECT_NE(PrimaryKeyStatement("TDBill", Engine::kSqlServer).find("schema_name()"),
            std::string::npos);
  EXPECT_NE(PrimaryKeyStatement("TDBill", Engine::kSqlServer).find("'IsIdentity'"),
            std::string::npos);
  EXPECT_NE(PrimaryKeyStatement("TDBill", Engine::kMariaDb).find("auto_increment"),
            std::string::npos);
}

}  // namespace
}  // namespace td
