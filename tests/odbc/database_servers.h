// The servers that the tests of this program share; started with the first test, gone with the
// last.
#pragma once

#include <string>

namespace td {

enum class Server { kPostgreSql, kMariaDb };

// The connection text of a server's empty test database, with its user and password.
[[nodiscard]] std::string ConnectionOf(Server server);

inline constexpr const char* kServerPassword = "geheim;}1";

[[nodiscard]] int PortOf(Server server);

void StopServer(Server server);
void StartServer(Server server);

}  // namespace td
