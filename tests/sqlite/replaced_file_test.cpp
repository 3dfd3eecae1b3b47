// A file of which a connection is kept, and that others replace, write over or delete. Windows lets
// nobody do that to a file which is open.
#include <gtest/gtest.h>

#include <filesystem>

#include "failure_of.h"
#include "sqlite/sqlite_database.h"
#include "temporary_database.h"

namespace td {
namespace {

class ReplacedSqliteFile : public testing::Test {
 protected:
  Value One() { return database_.OpenQuery(connection_, "select a from t")->Field("a"); }
  std::string OtherFile() {
    std::string other = folder_.File("other.db");
    MakeDatabase(other, "create table t(b,a); insert into t values(8,9)");
    return other;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.File("bills.db");
  std::string connection_ = MakeDatabase(path_, "create table t(a); insert into t values(1)");
  SqliteDatabase database_;
};

TEST_F(ReplacedSqliteFile, IsNoticedWhenItWasReplaced) {
  EXPECT_EQ(One(), Value(std::int64_t{1}));
  std::filesystem::rename(OtherFile(), path_);
  EXPECT_EQ(One(), Value(std::int64_t{9}));
}

TEST_F(ReplacedSqliteFile, IsNoticedWhenItWasWrittenOverInItsPlace) {
  EXPECT_EQ(One(), Value(std::int64_t{1}));
  std::filesystem::copy_file(OtherFile(), path_, std::filesystem::copy_options::overwrite_existing);
  EXPECT_EQ(One(), Value(std::int64_t{9}));
}

TEST_F(ReplacedSqliteFile, IsNoticedWhenItsLinkLeadsElsewhere) {
  const std::string link = folder_.File("link.db");
  std::filesystem::create_symlink(path_, link);
  connection_ = "sqlite:" + link;
  EXPECT_EQ(One(), Value(std::int64_t{1}));
  std::filesystem::remove(link);
  std::filesystem::create_symlink(OtherFile(), link);
  EXPECT_EQ(One(), Value(std::int64_t{9}));
}

TEST_F(ReplacedSqliteFile, IsNoticedWhenItWasDeleted) {
  One();
  std::filesystem::remove(path_);
  EXPECT_NE(FailureOf([&] { One(); }).Description().find("找不到数据库文件"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(ReplacedSqliteFile, IsNotWrittenToWhenItIsNoLongerThere) {
  const auto connection = database_.Connect(connection_);
  std::filesystem::rename(OtherFile(), path_);
  EXPECT_THROW(connection->Execute("update t set a=2"), Failure);
  EXPECT_EQ(One(), Value(std::int64_t{9}));
  database_.Connect(connection_)->Execute("update t set a=2");
  EXPECT_EQ(One(), Value(std::int64_t{2}));
}

}  // namespace
}  // namespace td
