#include <gtest/gtest.h>

#include "failure_of.h"
#include "odbc/driver_text.h"
#include "odbc/installed_drivers.h"
#include "odbc/odbc_database.h"

namespace td {
namespace {

std::string FromServerOn(const std::string& connection) {
  const std::string text = ToDriverText(connection).text;
  return text.substr(text.find("Server="));
}

TEST(DriverChoice, TheNewestDriverForSqlServerIsTaken) {
  EXPECT_EQ(NewestSqlServerDriver({}), "SQL Server");
  EXPECT_EQ(NewestSqlServerDriver({"SQLite3 ODBC Driver", "SQL Server", "PostgreSQL Unicode(x64)"}),
            "SQL Server");
  EXPECT_EQ(NewestSqlServerDriver({"SQL Server", "SQL Server Native Client 11.0"}),
            "SQL Server Native Client 11.0");
  EXPECT_EQ(
      NewestSqlServerDriver({"ODBC Driver 18 for SQL Server", "SQL Server",
                             "ODBC Driver 9 for SQL Server", "ODBC Driver 17 for SQL Server"}),
      "ODBC Driver 18 for SQL Server");
}

TEST(DriverChoice, ADriverIsFoundUnderTheNameThatItHasHere) {
  const std::vector<std::string> installed = {
      "PostgreSQL ANSI(x64)",    "PostgreSQL Unicode(x64)",      "MariaDB ODBC 3.1 Driver",
      "MariaDB ODBC 3.2 Driver", "MariaDB ODBC 3.0 Driver",      "SQL Server",
      "SQLite3 ODBC Driver",     "ODBC Driver 17 for SQL Server"};
  EXPECT_EQ(NewestDriverLike("PostgreSQL Unicode", installed), "PostgreSQL Unicode(x64)");
  EXPECT_EQ(NewestDriverLike("MariaDB", installed), "MariaDB ODBC 3.2 Driver");
  EXPECT_EQ(NewestDriverLike("MariaDB ODBC 3.1 Driver", installed), "MariaDB ODBC 3.1 Driver");
  EXPECT_EQ(NewestDriverLike("ODBC Driver 18 for SQL Server", installed),
            "ODBC Driver 17 for SQL Server");
  EXPECT_EQ(NewestDriverLike("sql server", installed), "sql server") << "it is there";
  EXPECT_EQ(NewestDriverLike("SQL Server", installed), "SQL Server") << "it is there";
  EXPECT_EQ(NewestDriverLike("SQL Server", {"ODBC Driver 18 for SQL Server"}),
            "ODBC Driver 18 for SQL Server");
  EXPECT_EQ(NewestDriverLike("MySQL ODBC 8.0 Unicode Driver", installed),
            "MySQL ODBC 8.0 Unicode Driver");
  EXPECT_EQ(NewestDriverLike("Oracle", installed), "Oracle");
}

TEST(DriverChoice, AProviderTextBecomesTheDriversOwn) {
  const std::string text =
      ToDriverText("Provider=SQLOLEDB.1;Data Source=server1;Initial Catalog=AIS1;User ID=sa;PWD=a")
          .text;
  EXPECT_TRUE(text.starts_with("Driver={")) << text;
  EXPECT_TRUE(text.ends_with("Server=server1;Database=AIS1;UID=sa;PWD=a;")) << text;
  EXPECT_EQ(FromServerOn("Provider=SQLNCLI11;Server=tcp:10.0.0.1,1500"), "Server=10.0.0.1,1500;");
  EXPECT_EQ(FromServerOn("Provider=SQLNCLI11;Server=host\\SQLEXPRESS"), "Server=host\\SQLEXPRESS;");
}

TEST(DriverChoice, TheUserOfTheSystemLogsOn) {
  EXPECT_EQ(FromServerOn("Provider=SQLOLEDB;Data Source=a;Integrated Security=SSPI"),
            "Server=a;Trusted_Connection=yes;");
  EXPECT_EQ(FromServerOn("Provider=SQLOLEDB;Data Source=a;Integrated Security=no;UID=sa"),
            "Server=a;UID=sa;");
  EXPECT_EQ(FromServerOn("Provider=SQLOLEDB;Data Source=a;Trusted_Connection=False;UID=sa"),
            "Server=a;UID=sa;");
}

TEST(DriverChoice, AProviderTextEncryptsAsItSays) {
  const auto beforeServer = [](const std::string& entries) {
    const std::string text = ToDriverText("Provider=SQLOLEDB;Data Source=a;" + entries).text;
    return text.substr(0, text.find("Server="));
  };
  EXPECT_TRUE(beforeServer("Encrypt=yes").ends_with("};Encrypt=yes;"));
  EXPECT_TRUE(beforeServer("Use Encryption for Data=True;Trust Server Certificate=1")
                  .ends_with("};Encrypt=yes;TrustServerCertificate=yes;"));
  EXPECT_TRUE(beforeServer("Encrypt=Optional").ends_with("};Encrypt=no;"));
  EXPECT_TRUE(beforeServer("Encrypt=strict").ends_with("};Encrypt=strict;"));
  EXPECT_EQ(beforeServer("").find("Encrypt=yes"), std::string::npos);
}

TEST(DriverChoice, AFailedConnectionIsAFailureWithoutThePassword) {
  OdbcDatabase database;
  const Failure failure = FailureOf(
      [&] { database.OpenQuery("Driver={no such driver};Server=h;UID=u;PWD=geheim", "select 1"); });
  EXPECT_EQ(failure.Number(), kDatabaseFailed);
  EXPECT_EQ(failure.Description().find("geheim"), std::string::npos) << failure.Description();
}

}  // namespace
}  // namespace td
