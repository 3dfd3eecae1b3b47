#include "odbc/installed_drivers.h"
#include "odbc/sql_server_driver.h"

namespace td {

std::string SqlServerDriver(const Encryption& encryption) {
  const std::string driver = InstalledSqlServerDriver();
  std::string text = "Driver={" + driver + "};";
  if (!encryption.isAsked.empty()) {
    text += "Encrypt=" + encryption.isAsked + ";";
  } else if (driver.starts_with("ODBC Driver ")) {
    text += "Encrypt=no;";
  }
  if (!encryption.trustsServer.empty()) {
    text += "TrustServerCertificate=" + encryption.trustsServer + ";";
  }
  return text;
}

std::string SqlServerAddress(std::string_view host, std::string_view port) {
  const std::string text = "Server=" + std::string(host);
  return text + (port.empty() ? "" : "," + std::string(port)) + ";";
}

std::string SystemUserLogOn() {
  return "Trusted_Connection=yes;";
}

}  // namespace td
