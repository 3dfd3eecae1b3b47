// One test on each engine.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "database_servers.h"
#include "failure_of.h"
#include "odbc/odbc_database.h"

namespace td {

class OnEachServer : public testing::TestWithParam<Server> {
 protected:
  [[nodiscard]] bool IsPostgreSql() const { return GetParam() == Server::kPostgreSql; }

  void Execute(const std::string& sql) { database_.Connect(connection_)->Execute(sql); }
  // Makes the table anew.
  void MakeTable(const std::string& name, const std::string& columns) {
    Execute("drop table if exists " + name);
    Execute("create table " + name + "(" + columns + ")");
  }
  RecordsetRef Open(const std::string& sql) { return database_.OpenQuery(connection_, sql); }
  // The value of column "a" in the first row.
  Value One(const std::string& sql) { return Open(sql)->Field("a"); }
  // The description with which a statement fails, which must not be taken for a lock.
  std::string Fails(const std::string& sql) {
    const Failure failure = FailureOf([&] { Open(sql); });
    EXPECT_EQ(failure.Number(), kDatabaseFailed);
    EXPECT_EQ(failure.Description().find("锁"), std::string::npos) << failure.Description();
    return failure.Description();
  }

  std::string connection_ = ConnectionOf(GetParam());
  OdbcDatabase database_;
};

inline std::string NameOfServer(const testing::TestParamInfo<Server>& info) {
  return info.param == Server::kPostgreSql ? "PostgreSQL" : "MariaDB";
}

}  // namespace td
