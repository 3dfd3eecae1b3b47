#include "odbc/installed_drivers.h"
#include "odbc/sql_server_driver.h"

namespace td {

// The provider texts come from a time when nothing was encrypted unless it was asked for.
std::string SqlServerDriver() {
  const std::string driver = InstalledSqlServerDriver();
  const bool encrypts = driver.starts_with("ODBC Driver ");
  return "Driver={" + driver + "};" + (encrypts ? "Encrypt=no;" : "");
}

std::string SqlServerAddress(std::string_view host, std::string_view port) {
  const std::string text = "Server=" + std::string(host);
  return text + (port.empty() ? "" : "," + std::string(port)) + ";";
}

std::string SystemUserLogOn() {
  return "Trusted_Connection=yes;";
}

}  // namespace td
