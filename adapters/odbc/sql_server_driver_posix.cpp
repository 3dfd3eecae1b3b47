#include "odbc/sql_server_driver.h"

namespace td {

std::string SqlServerDriver() {
  return "Driver=FreeTDS;TDS_Version=7.4;ClientCharset=UTF-8;";
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
