// A database user with the rights that docs/databases.md grants, and no other.
#pragma once

#include <string>
#include <vector>

#include "database_servers.h"
#include "sample_engine.h"
#include "scratch_folder.h"

namespace td {

// Made in the sample of a server, and gone with this object. The roles are those that the page
// grants rights to; tables of the print data are read besides.
class UserWithRights {
 public:
  UserWithRights(SampleEngine engine, const std::vector<std::string>& roles,
                 const std::vector<std::string>& printData);
  UserWithRights(const UserWithRights&) = delete;
  UserWithRights& operator=(const UserWithRights&) = delete;
  ~UserWithRights();

  [[nodiscard]] const std::string& Connection() const { return connection_; }

 private:
  bool isPostgreSql_;
  Server server_;
  ScratchFolder scratch_;
  std::string connection_;
};

}  // namespace td
