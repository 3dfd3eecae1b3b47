// The drivers that Windows has.
#pragma once

#include <string>
#include <vector>

namespace td {

// Of the names of installed drivers the one for SQL Server that its maker has made last; "SQL
// Server", which is a part of Windows, if there is no other.
[[nodiscard]] std::string NewestSqlServerDriver(const std::vector<std::string>& installed);

}  // namespace td
