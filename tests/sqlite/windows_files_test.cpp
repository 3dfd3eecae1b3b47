// What the file system of Windows puts in the way.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "failure_of.h"
#include "files/path_text.h"
#include "files/windows_file.h"
#include "sqlite/sqlite_database.h"
#include "temporary_database.h"

namespace td {
namespace {

class SqliteOnWindows : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string path_ = folder_.File("账.db");
  std::string connection_ = MakeDatabase(path_, "create table t(a); insert into t values(1)");
  SqliteDatabase database_;
};

TEST_F(SqliteOnWindows, AFileThatAnotherProgramHoldsIsAFailureInTheSystemsWords) {
  const WindowsFile held(CreateFileW(PathOf(path_).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                     FILE_ATTRIBUTE_NORMAL, nullptr));
  ASSERT_TRUE(held.IsOpen());
  const Failure failure = FailureOf([&] { database_.OpenQuery(connection_, "select 1"); });
  EXPECT_EQ(failure.Description(), "数据库错误：打不开数据库文件“" + path_ + "”（" +
                                       ReasonOf(NumberOfError(ERROR_SHARING_VIOLATION)) + "）");
}

TEST_F(SqliteOnWindows, APathMayBeLongerThanTheOldLimit) {
  std::string folder = TextOf(folder_.Path());
  std::vector<std::wstring> made;
  for (int i = 0; i < 20; ++i) {
    folder += "\\" + std::string(60, 'd');
    made.push_back(SystemPath(PathOf(folder)));
    ASSERT_TRUE(CreateDirectoryW(made.back().c_str(), nullptr)) << i;
  }
  const std::wstring deep = SystemPath(PathOf(folder + "\\账.db"));
  ASSERT_TRUE(CopyFileW(PathOf(path_).c_str(), deep.c_str(), TRUE));
  {
    SqliteDatabase database;
    const std::string connection = "sqlite:" + folder + "\\账.db";
    database.Connect(connection)->Execute("insert into t values(2)");
    EXPECT_EQ(database.OpenQuery(connection, "select sum(a) as s from t")->Field("s"),
              Value(std::int64_t{3}));
  }
  EXPECT_TRUE(DeleteFileW(deep.c_str()));
  while (!made.empty()) {
    EXPECT_TRUE(RemoveDirectoryW(made.back().c_str()));
    made.pop_back();
  }
}

}  // namespace
}  // namespace td
