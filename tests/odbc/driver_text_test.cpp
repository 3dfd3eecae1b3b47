#include "odbc/driver_text.h"

#include <gtest/gtest.h>

#include "failure_of.h"
#include "odbc/engine_dialect.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

TEST(DriverText, PassesDriverTextsOnAsTheyAre) {
  for (const char* text : {"Driver={X};Server=a;PWD={p;}}}", "dsn=shop", " DRIVER = X ; A=b"}) {
    EXPECT_EQ(ToDriverText(text).text, text);
  }
  EXPECT_EQ(ToDriverText("Driver={X};PWD={p;}}}").password, "p;}");
}

TEST(DriverText, TellsTheDriverOfSqliteHowLongToWaitForALock) {
  EXPECT_EQ(ToDriverText("Driver={SQLite3};Database=/a.db").text,
            "Driver={SQLite3};Database=/a.db;Timeout=1000;");
  const std::string own = "driver=SQLite3;Database=/a.db;TIMEOUT=7";
  EXPECT_EQ(ToDriverText(own).text, own);
}

TEST(DriverText, TranslatesTheProvidersOfSqlServer) {
  const DriverText text = ToDriverText(
      "Provider=SQLOLEDB.1;Persist Security Info=False;User ID=sa;Password=a;Initial "
      "Catalog=AIS1;Data Source=server1");
  EXPECT_EQ(text.text,
            "Driver=FreeTDS;TDS_Version=7.4;ClientCharset=UTF-8;Server=server1;Port=1433;"
            "Database=AIS1;UID=sa;PWD=a;");
  EXPECT_EQ(text.password, "a");
  const auto serverOf = [](const std::string& source) {
    const std::string text = ToDriverText("provider=sqlncli11;server=" + source).text;
    return text.substr(text.find("Server="));
  };
  EXPECT_EQ(serverOf("tcp:10.0.0.1,1500"), "Server=10.0.0.1;Port=1500;");
  EXPECT_EQ(serverOf("(local)"), "Server=localhost;Port=1433;");
  EXPECT_EQ(serverOf(".,1500"), "Server=localhost;Port=1500;");
  EXPECT_EQ(serverOf("host\\SQLEXPRESS"), "Server=host\\SQLEXPRESS;");
}

TEST(DriverText, LogsOnAsTheUserOfTheSystemOnlyWhereItIsAsked) {
  for (const char* no :
       {"Integrated Security=False", "trusted_connection=No", "Integrated Security=0"}) {
    const std::string text = "Provider=SQLOLEDB;Data Source=a;User ID=sa;" + std::string(no);
    EXPECT_TRUE(ToDriverText(text).text.ends_with("UID=sa;")) << no;
  }
  for (const char* yes : {"Integrated Security=true", "Trusted_Connection=yes"}) {
    const std::string text = "Provider=SQLOLEDB;Data Source=a;" + std::string(yes);
    EXPECT_EQ(FailureOf([&] { (void)ToDriverText(text); }).Number(), kDatabaseFailed) << yes;
  }
}

TEST(DriverText, EncryptsWhereAProviderTextAsksForIt) {
  const auto encryptsBy = [](const std::string& entry) {
    const std::string text = ToDriverText("Provider=MSOLEDBSQL;Data Source=a;" + entry).text;
    return text.find("Encryption=require;") != std::string::npos;
  };
  for (const char* yes : {"Encrypt=yes", "Use Encryption for Data=True", "encrypt=Mandatory"}) {
    EXPECT_TRUE(encryptsBy(yes)) << yes;
  }
  for (const char* no : {"", "Encrypt=no", "Use Encryption for Data=false", "Encrypt=Optional"}) {
    EXPECT_FALSE(encryptsBy(no)) << no;
  }
}

TEST(DriverText, TranslatesTheProviderForDrivers) {
  EXPECT_EQ(ToDriverText("Provider=MSDASQL;Data Source=shop;User ID=u;Password=p}").text,
            "DSN=shop;UID=u;PWD={p}}};");
  EXPECT_EQ(ToDriverText("Provider=MSDASQL.1;Extended Properties=\"Driver={X};Server=h\"").text,
            "Driver={X};Server=h;");
}

TEST(DriverText, EncryptsForAnotherDriverAsForTheOneThatItNames) {
  const auto textFor = [](const std::string& driver, const std::string& text) {
    return TextForDriver(driver, ReadConnectionEntries(text));
  };
  const std::string newest = "ODBC Driver 18 for SQL Server";
  const std::string begin = "Driver={" + newest + "};Server=a;";
  EXPECT_EQ(textFor(newest, "Driver={SQL Server};Server=a"), begin + "Encrypt=no;");
  EXPECT_EQ(textFor(newest, "Driver=ODBC Driver 17 for SQL Server;Server=a"),
            begin + "Encrypt=no;");
  EXPECT_EQ(textFor(newest, "Driver={SQL Server};Server=a;encrypt=yes"), begin + "encrypt=yes;");
  EXPECT_EQ(textFor(newest, "Driver={ODBC Driver 19 for SQL Server};Server=a"), begin)
      << "that one encrypts, too";
  EXPECT_EQ(textFor("PostgreSQL Unicode(x64)", "Server={a;b};Driver={PostgreSQL Unicode}"),
            "Driver={PostgreSQL Unicode(x64)};Server={a;b};");
}

TEST(DriverText, RefusesOtherTexts) {
  for (const char* text :
       {"", "a.db", "Server=a", "Provider=Other;Data Source=a", "Provider=SQLOLEDB",
        "Provider=SQLOLEDB;Data Source=a;Integrated Security=SSPI", "Driver={X"}) {
    EXPECT_EQ(FailureOf([text] { (void)ToDriverText(text); }).Number(), kDatabaseFailed) << text;
  }
}

TEST(DriverText, RefusesATextThatIsTooLong) {
  const std::string text = "Driver={X};Server=" + std::string(70000, 'a');
  EXPECT_EQ(FailureOf([&] { (void)ToDriverText(text); }).Number(), kDatabaseFailed);
}

TEST(EngineDialect, ReplacesTheCallOfIsnullWhereItIsUnknown) {
  const char* sql = "select left(isnull(a,''),1),'isnull(' from t where a isnull";
  EXPECT_EQ(ToEngineDialect(sql, Engine::kPostgreSql, {}),
            "select left(coalesce(a,''),1),'isnull(' from t where a isnull");
  EXPECT_EQ(ToEngineDialect(sql, Engine::kSqlServer, {}), sql);
}

TEST(EngineDialect, GivesTableNamesTheirCapitals) {
  const TableNames tables({"t_SystemProfile", "Twice", "twice"});
  EXPECT_EQ(ToEngineDialect("select T_systemprofile.a,'t_systemprofile' from t_systemprofile,TWICE",
                            Engine::kMariaDb, tables),
            "select t_SystemProfile.a,'t_systemprofile' from t_SystemProfile,TWICE");
}

TEST(Utf16, TakesAndGivesEveryCharacter) {
  const std::string text = std::string("a\0é", 4) + "销\U0001F5A8\U0010FFFF";
  EXPECT_EQ(ToUtf8(ToUtf16(text)), text);
  EXPECT_EQ(ToUtf16("\U0001F5A8").size(), 2U);
}

TEST(Utf16, ReplacesHalvesThatStandAlone) {
  EXPECT_EQ(ToUtf8(std::u16string{0xD800, u'a', 0xDC00, 0xD83D}), "\uFFFDa\uFFFD\uFFFD");
  EXPECT_EQ(ToUtf8(ToUtf16("\xFF")), "\uFFFD");
}

}  // namespace
}  // namespace td
