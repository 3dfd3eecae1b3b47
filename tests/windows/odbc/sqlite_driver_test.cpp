// A SQLite file through its ODBC driver: programs that reach their own file in this way hand over
// the same connection text.
#include <gtest/gtest.h>

#include "failure_of.h"
#include "odbc/odbc_database.h"
#include "platform/standard_failures.h"
#include "temporary_database.h"
#include "text/conversions.h"
#include "windows/api/windows_api.h"

namespace td {
namespace {

// As the driver sees it: that of the emulation is one of the machine around it, and takes names of
// files in ASCII alone.
std::string PathOfDriver(const std::string& file) {
  using ToUnix = char*(CDECL*)(const wchar_t*);
  const auto toUnix = reinterpret_cast<ToUnix>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
  if (toUnix == nullptr) return file;
  char* const path = toUnix(PathOf(file).c_str());
  std::string text = path;
  HeapFree(GetProcessHeap(), 0, path);
  return text;
}

class SqliteDriver : public testing::Test {
 protected:
  std::string ValueOf(const std::string& sql) {
    return ToText(database_.OpenQuery(connection_, sql)->Field("v"));
  }
  void Run(const std::string& sql) { database_.OpenQuery(connection_, sql); }

  const TemporaryFolder folder_;
  const std::string file_ = MakeDatabase(folder_.File("shop.db"), R"(
    create table 商品 (FName text, FQty real, FPicture blob);
    insert into 商品 values ('东北大米“一号”', 2.5, x'00ff'), (null, 7, null);
    create table Numbered (n integer primary key, x integer);
    create table Two (x integer, y integer, z integer, primary key (z, x));)");
  const std::string connection_ =
      "Driver={SQLite3 ODBC Driver};Database=" + PathOfDriver(folder_.File("shop.db"));
  OdbcDatabase database_;
};

TEST_F(SqliteDriver, ReadsChineseTextsAndNames) {
  EXPECT_EQ(ValueOf("select FName v from 商品 where FQty=2.5"), "东北大米“一号”");
  EXPECT_EQ(ValueOf("select FQty v from 商品 where FName='东北大米“一号”'"), "2.5");
  EXPECT_EQ(ValueOf("select isnull(FName,'没有') v from [商品] where FQty=7"), "没有");
  EXPECT_EQ(ValueOf("select count(*) v from 商品"), "2");
}

TEST_F(SqliteDriver, WritesWhatItReads) {
  Run("update 商品 set FName='粳米' where FQty=7");
  EXPECT_EQ(ValueOf("select FName v from 商品 where FQty=7"), "粳米");
}

TEST_F(SqliteDriver, TellsErrorsInTheEnginesWords) {
  const Failure failure = FailureOf([&] { Run("select * from 没有的表"); });
  EXPECT_EQ(failure.Number(), kDatabaseFailed);
  EXPECT_NE(failure.Description().find("没有的表"), std::string::npos) << failure.Description();
  EXPECT_FALSE(IsLockConflict(failure));
}

TEST_F(SqliteDriver, ALockComesAfterABoundedWaitAndSaysSo) {
  OdbcDatabase other;
  const auto transaction = other.Begin(connection_, Access::kReadWrite);
  (void)transaction->Run("update 商品 set FQty=8 where FQty=7");
  const Failure failure = FailureOf([&] { Run("update 商品 set FQty=9 where FQty=7"); });
  EXPECT_TRUE(IsLockConflict(failure)) << failure.Description();
  transaction->Commit();
  EXPECT_EQ(ValueOf("select count(*) v from 商品 where FQty=8"), "1");
}

TEST_F(SqliteDriver, WhatOnlyReadsChangesNothing) {
  const auto rows = database_.OpenReadOnly(connection_, "select FQty v from 商品 where FQty=7");
  EXPECT_EQ(ToText(rows->Field("v")), "7");
  EXPECT_EQ(FailureOf([&] { database_.OpenReadOnly(connection_, "delete from 商品"); }).Number(),
            kDatabaseFailed);
  Run("update 商品 set FQty=8 where FQty=7");
  EXPECT_EQ(ValueOf("select count(*) v from 商品 where FQty=8"), "1") << "and writing goes on";
}

TEST_F(SqliteDriver, TellsTheKeyOfATable) {
  const auto keysOf = [&](const std::string& table) {
    std::string keys;
    for (const KeyColumn& key :
         database_.Begin(connection_, Access::kReadWrite)->PrimaryKey(table)) {
      keys += key.name + (key.isGenerated ? "+" : "") + " ";
    }
    return keys;
  };
  EXPECT_EQ(keysOf("numbered"), "n+ ");
  EXPECT_EQ(keysOf("Two"), "z x ");
  EXPECT_EQ(keysOf("商品"), "");
}

}  // namespace
}  // namespace td
