// What the file system of Windows puts in the way.
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace td
