// The drivers that a platform has.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace td {

// Of the names of installed drivers the one for SQL Server that its maker has made last; "SQL
// Server", which is a part of Windows, if there is no other.
[[nodiscard]] std::string NewestSqlServerDriver(const std::vector<std::string>& installed);

// The name under which a driver is installed. Names of Windows tell versions and kinds: where the
// wanted one is missing, the newest of those that serve the same engine takes its place. The name
// itself if there is none.
[[nodiscard]] std::string NewestDriverLike(std::string_view wanted,
                                           const std::vector<std::string>& installed);

// The same among the drivers of this machine. Elsewhere than on Windows names have no versions, and
// each is kept.
[[nodiscard]] std::string InstalledDriver(const std::string& wanted);

// The newest one for SQL Server of this machine, which is one of Windows.
[[nodiscard]] std::string InstalledSqlServerDriver();

}  // namespace td
