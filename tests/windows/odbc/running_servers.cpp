// The servers that run_on_servers.py has started.
#include <cstdlib>
#include <stdexcept>

#include "database_servers.h"

namespace td {

int PortOf(Server server) {
  const char* port =
      std::getenv(server == Server::kPostgreSql ? "QBTD_POSTGRESQL_PORT" : "QBTD_MARIADB_PORT");
  if (port == nullptr) throw std::runtime_error("run_on_servers.py starts this program");
  return std::atoi(port);
}

std::string ConnectionOf(Server server) {
  const std::string driver = server == Server::kPostgreSql ? "PostgreSQL Unicode" : "MariaDB";
  return "Driver={" + driver + "};Server=127.0.0.1;Port=" + std::to_string(PortOf(server)) +
         ";Database=qbtd;UID=clerk;PWD={geheim;}}1}";
}

}  // namespace td
