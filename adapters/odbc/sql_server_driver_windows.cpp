#include <array>
#include <charconv>
#include <string>
#include <vector>

#include "odbc/installed_drivers.h"
#include "odbc/sql_server_driver.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

namespace td {
namespace {

// The names of the drivers of this process's kind, of 32 or 64 bits.
std::vector<std::string> InstalledDrivers() {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ODBC\\ODBCINST.INI\\ODBC Drivers", 0, KEY_READ,
                    &key) != ERROR_SUCCESS) {
    return {};
  }
  std::vector<std::string> names;
  std::array<wchar_t, 512> name{};
  for (DWORD i = 0;; ++i) {
    auto length = static_cast<DWORD>(name.size());
    const LSTATUS result =
        RegEnumValueW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
    if (result == ERROR_MORE_DATA) continue;
    if (result != ERROR_SUCCESS) break;
    names.push_back(FromWide({name.data(), length}));
  }
  RegCloseKey(key);
  return names;
}

// The number of "ODBC Driver 18 for SQL Server"; that of the driver's forerunner is below all of
// them, and 0 is no driver for SQL Server.
int RankOf(std::string_view name) {
  constexpr std::string_view kBegin = "ODBC Driver ";
  constexpr std::string_view kEnd = " for SQL Server";
  if (name.starts_with("SQL Server Native Client ")) return 1;
  if (!name.starts_with(kBegin) || !name.ends_with(kEnd)) return 0;
  name.remove_prefix(kBegin.size());
  int number = 0;
  std::from_chars(name.data(), name.data() + name.size(), number);
  return number;
}

}  // namespace

std::string NewestSqlServerDriver(const std::vector<std::string>& installed) {
  std::string newest = "SQL Server";
  int best = 0;
  for (const std::string& name : installed) {
    if (RankOf(name) <= best) continue;
    best = RankOf(name);
    newest = name;
  }
  return newest;
}

// The provider texts come from a time when nothing was encrypted unless it was asked for.
std::string SqlServerDriver() {
  const std::string driver = NewestSqlServerDriver(InstalledDrivers());
  const bool encrypts = RankOf(driver) > 1;
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
