// The servers that the tests of this program share: each started by the first test that asks for
// it, and gone with the last test.
#pragma once

#include <filesystem>
#include <string>

namespace td {

enum class Server { kPostgreSql, kMariaDb };

// The connection text of a server's empty test database, with its user and password.
[[nodiscard]] std::string ConnectionOf(Server server);

inline constexpr const char* kServerPassword = "geheim;}1";

[[nodiscard]] int PortOf(Server server);

void StopServer(Server server);
void StartServer(Server server);

// Runs a script in the test database with the server's own client.
void RunScript(Server server, const std::filesystem::path& script);

}  // namespace td
