#include "odbc/sql_server_driver.h"

namespace td {

// FreeTDS looks at no certificate unless it is told those that it shall trust.
std::string SqlServerDriver(const Encryption& encryption) {
  const std::string text = "Driver=FreeTDS;TDS_Version=7.4;ClientCharset=UTF-8;";
  const bool isAsked = !encryption.isAsked.empty() && encryption.isAsked != "no";
  return isAsked ? text + "Encryption=require;" : text;
}

std::string SqlServerAddress(std::string_view host, std::string_view port) {
  std::string text = "Server=" + std::string(host) + ";";
  if (!port.empty()) return text + "Port=" + std::string(port) + ";";
  return host.find('\\') == std::string_view::npos ? text + "Port=1433;" : text;
}

std::string SystemUserLogOn() {
  return {};
}

}  // namespace td
