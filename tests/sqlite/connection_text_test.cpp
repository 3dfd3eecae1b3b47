#include "sqlite/connection_text.h"

#include <gtest/gtest.h>

#include "failure_of.h"

namespace td {
namespace {

TEST(ConnectionText, TakesAllBehindThePrefixAsThePath) {
  EXPECT_EQ(DatabasePath("sqlite:/数据/bill 1;x=y.db"), "/数据/bill 1;x=y.db");
  EXPECT_EQ(DatabasePath("SQLite:a.db"), "a.db");
}

TEST(ConnectionText, ReadsKeysAndProviderWithoutRegardToCase) {
  EXPECT_EQ(DatabasePath("Provider=SQLite;Data Source=/tmp/a.db"), "/tmp/a.db");
  EXPECT_EQ(DatabasePath(" data SOURCE = /tmp/a b.db ; PROVIDER = sqlITE ; "), "/tmp/a b.db");
}

TEST(ConnectionText, ReadsValuesInQuotes) {
  EXPECT_EQ(DatabasePath(R"(Provider="SQLite";Data Source="/tmp/a;b.db")"), "/tmp/a;b.db");
  EXPECT_EQ(DatabasePath("Provider=SQLite;Data Source='/tmp/it''s \"x\".db' "),
            "/tmp/it's \"x\".db");
}

TEST(ConnectionText, AcceptsUserAndPasswordWithoutUsingThem) {
  EXPECT_EQ(DatabasePath("Provider=SQLite;Data Source=a.db;;User ID=;Password=\"a;b\";"
                         "Persist Security Info=False"),
            "a.db");
}

TEST(ConnectionText, RefusesEveryOtherText) {
  for (const char* text :
       {"", "   ", "a.db", "/tmp/a.db", "sqlite:", "Provider=SQLite", "Data Source=a.db",
        "Provider=Other;Data Source=a.db", "Provider=SQLite;Data Source=",
        "Provider=SQLite;Data Source=\"\"", "Provider=SQLite;Data Source=\"a.db",
        "Provider=SQLite;Data Source='", "Provider=SQLite;Data Source='a'b",
        "Provider=SQLite;Data Source=a.db;Mode=x", "Provider=SQLite;Data Source=a;data source=b",
        "Provider=SQLite;nonsense;Data Source=a.db", "=;=", ";;;"}) {
    const Failure failure = FailureOf([text] { (void)DatabasePath(text); });
    EXPECT_EQ(failure.Number(), kDatabaseFailed) << text;
    EXPECT_NE(failure.Description().find("连接文本有误"), std::string::npos) << text;
  }
}

TEST(ConnectionText, RefusesANulByte) {
  EXPECT_EQ(FailureOf([] { (void)DatabasePath(std::string("sqlite:a\0b", 10)); }).Number(),
            kDatabaseFailed);
}

TEST(ConnectionText, NeverShowsAPasswordOrTheLockCharacter) {
  const std::string description =
      FailureOf([] { (void)DatabasePath("Provider=锁;Password=geheim;锁=1"); }).Description();
  EXPECT_EQ(description.find("geheim"), std::string::npos);
  EXPECT_EQ(description.find("锁"), std::string::npos);
}

}  // namespace
}  // namespace td
