// The servers that run_on_servers.py has started.
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "database_servers.h"
#include "file_content.h"
#include "odbc/odbc_handles.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

// A statement as it is; the component itself takes no more than one at a time.
void Run(const OdbcConnectionHandle& connection, const std::string& sql) {
  const auto statement = MakeStatement(connection);
  const std::u16string text = ToUtf16(sql);
  const SQLRETURN code =
      SQLExecDirectW(statement.get(), WideText(text), static_cast<SQLINTEGER>(text.size()));
  if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) throw std::runtime_error("failed: " + sql);
}

}  // namespace

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

// As the servers' own clients read it: statements end where a line ends with the delimiter.
void RunScript(Server server, const std::filesystem::path& script) {
  const OdbcConnectionHandle connection(ToDriverText(ConnectionOf(server)));
  const std::string change = "delimiter ";
  std::string delimiter = ";";
  std::string statement;
  std::istringstream lines(ContentOf(script));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(change)) {
      delimiter = line.substr(change.size());
      continue;
    }
    statement += line + "\n";
    if (!line.ends_with(delimiter)) continue;
    Run(connection, statement.substr(0, statement.size() - delimiter.size() - 1));
    statement.clear();
  }
}

}  // namespace td
