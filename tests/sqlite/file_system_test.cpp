// What the file system puts in the way: rights, devices, names that are too long.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "failure_of.h"
#include "sqlite/sqlite_database.h"
#include "temporary_database.h"

namespace td {
namespace {

class SqliteFileSystem : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string path_ = folder_.File("bills.db");
  std::string connection_ = MakeDatabase(path_, "create table t(a); insert into t values(1)");
  SqliteDatabase database_;
};

TEST_F(SqliteFileSystem, OfADevice) {
  EXPECT_NE(FailureOf([&] { database_.OpenQuery("sqlite:/dev/null", "select 1"); })
                .Description()
                .find("不是普通文件"),
            std::string::npos);
}

TEST_F(SqliteFileSystem, OfAPathThatNoFileCanHave) {
  const std::string path = "sqlite:" + std::string(10000, 'x');
  EXPECT_NE(FailureOf([&] { database_.OpenQuery(path, "select 1"); }).Description().find("打不开"),
            std::string::npos);
}

TEST_F(SqliteFileSystem, OfAFileThatMayNotBeRead) {
  if (geteuid() != 0) GTEST_SKIP() << "needs a second user";
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(path_.c_str(), 0600), 0);
  ASSERT_EQ(seteuid(65534), 0);
  const std::string description =
      FailureOf([&] { database_.OpenQuery(connection_, "select 1"); }).Description();
  ASSERT_EQ(seteuid(0), 0);
  EXPECT_NE(description.find("没有权限"), std::string::npos) << description;
}

TEST_F(SqliteFileSystem, OfAWriteToAFileThatMayOnlyBeRead) {
  if (geteuid() != 0) GTEST_SKIP() << "needs a second user";
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(path_.c_str(), 0644), 0);
  ASSERT_EQ(seteuid(65534), 0);
  EXPECT_EQ(database_.OpenQuery(connection_, "select a from t")->Field("a"),
            Value(std::int64_t{1}));
  const Failure failure =
      FailureOf([&] { database_.Connect(connection_)->Execute("update t set a=2"); });
  ASSERT_EQ(seteuid(0), 0);
  EXPECT_NE(failure.Description().find("readonly"), std::string::npos) << failure.Description();
}

}  // namespace
}  // namespace td
