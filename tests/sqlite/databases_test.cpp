// Which engine a connection text goes to.
#include "desktop/databases.h"

#include <gtest/gtest.h>

#include "failure_of.h"

namespace td {
namespace {

TEST(DatabasesTest, APathIsAPathWhateverItLooksLike) {
  Databases databases;
  for (const char* connection : {"sqlite:none=1;Driver=no-such-driver", "SQLite:none=1;DSN=none"}) {
    const Failure failure = FailureOf([&] { databases.OpenReadOnly(connection, "select 1"); });
    EXPECT_NE(failure.Description().find("找不到数据库文件"), std::string::npos)
        << failure.Description();
  }
}

}  // namespace
}  // namespace td
