// How SQL Server is reached through the drivers of a platform.
#pragma once

#include <string>
#include <string_view>

namespace td {

// What a text says of encryption: "yes", "no" or another word of the drivers; empty for nothing.
struct Encryption {
  std::string isAsked;
  std::string trustsServer;  // whose certificate isn't looked at then
};

// "Driver=…;", and what that driver needs besides. On Windows the newest driver that is installed.
// Nothing is encrypted where nothing is said: provider texts come from a time when that was so.
[[nodiscard]] std::string SqlServerDriver(const Encryption& encryption);

// "Server=…;". The port is empty where the text names none; `host` may have an instance behind a
// backslash.
[[nodiscard]] std::string SqlServerAddress(std::string_view host, std::string_view port);

// What logs on as the user of the operating system; empty where a driver can't do that.
[[nodiscard]] std::string SystemUserLogOn();

}  // namespace td
