// How SQL Server is reached through the drivers of a platform.
#pragma once

#include <string>
#include <string_view>

namespace td {

// "Driver=…;", and what that driver needs besides. On Windows the newest driver that is installed.
[[nodiscard]] std::string SqlServerDriver();

// "Server=…;". The port is empty where the text names none; `host` may have an instance behind a
// backslash.
[[nodiscard]] std::string SqlServerAddress(std::string_view host, std::string_view port);

// What logs on as the user of the operating system; empty where a driver can't do that.
[[nodiscard]] std::string SystemUserLogOn();

}  // namespace td
