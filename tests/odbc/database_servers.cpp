#include "database_servers.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace td {
namespace {

// A port for a server, kept for it until the process ends: a bound socket that does not listen
// keeps off outgoing connections and who takes any free port, but not a server on the same address
// that asks to use the port again, as both servers do.
int ReservePort() {
  const int keeper = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof(address);
  auto* const plain = reinterpret_cast<sockaddr*>(&address);
  const int shared = 1;
  if (bind(keeper, plain, length) != 0 || getsockname(keeper, plain, &length) != 0 ||
      setsockopt(keeper, SOL_SOCKET, SO_REUSEADDR, &shared, sizeof(shared)) != 0) {
    throw std::runtime_error("no free port");
  }
  return ntohs(address.sin_port);
}

std::string NameOf(Server server) {
  return server == Server::kPostgreSql ? "postgresql" : "mariadb";
}

class Servers : public testing::Environment {
 public:
  void TearDown() override {
    for (const Server server : {Server::kPostgreSql, Server::kMariaDb}) {
      if (Port(server) != 0) Run("stop", server);
    }
    if (!folder_.empty()) std::filesystem::remove_all(folder_);
  }

  // Starts the server for the first who asks for it.
  int PortOfRunning(Server server) {
    if (Port(server) == 0) {
      MakeFolder();
      Port(server) = ReservePort();
      Run("start", server);
    }
    return Port(server);
  }

  void Run(const std::string& action, Server server) {
    const std::string command = std::string(QBTD_SOURCE_DIR "/tests/odbc/database-servers.sh ") +
                                action + " " + NameOf(server) + " " + folder_.string() + " " +
                                std::to_string(Port(server));
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
  }

 private:
  int& Port(Server server) {
    return server == Server::kPostgreSql ? postgreSqlPort_ : mariaDbPort_;
  }

  void MakeFolder() {
    if (!folder_.empty()) return;
    std::string folder = (std::filesystem::temp_directory_path() / "qbtd-odbc-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
    chmod(folder.c_str(), 0755);  // the servers run as another user
    folder_ = folder;
  }

  std::filesystem::path folder_;
  int postgreSqlPort_ = 0;  // 0: never started
  int mariaDbPort_ = 0;
};

Servers* const servers = [] {
  auto* const environment = new Servers;
  testing::AddGlobalTestEnvironment(environment);  // which owns it from now on
  return environment;
}();

}  // namespace

std::string ConnectionOf(Server server) {
  const std::string driver =
      server == Server::kPostgreSql ? "PostgreSQL Unicode" : "MariaDB Unicode";
  return "Driver={" + driver + "};Server=127.0.0.1;Port=" + std::to_string(PortOf(server)) +
         ";Database=qbtd;UID=clerk;PWD={geheim;}}1}";
}

int PortOf(Server server) {
  return servers->PortOfRunning(server);
}
void StopServer(Server server) {
  servers->Run("stop", server);
}
void StartServer(Server server) {
  servers->Run("start", server);
}

void RunScript(Server server, const std::filesystem::path& script) {
  const std::string port = std::to_string(PortOf(server));
  const std::string password = kServerPassword;
  const std::string client =
      server == Server::kPostgreSql
          ? "PGPASSWORD='" + password + "' psql -q -v ON_ERROR_STOP=1 -h 127.0.0.1 -p " + port +
                " -U clerk qbtd -f "
          : "MYSQL_PWD='" + password +
                "' mariadb --no-defaults --default-character-set=utf8mb4 -h 127.0.0.1 -P " + port +
                " -u clerk qbtd < ";
  const std::string command = client + "'" + script.string() + "'";
  if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

}  // namespace td
