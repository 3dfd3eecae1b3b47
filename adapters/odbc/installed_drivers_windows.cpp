#include <algorithm>
#include <array>
#include <charconv>

#include "odbc/installed_drivers.h"
#include "sql_support/sql_scanner.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <sqlext.h>
#include <sqlucode.h>

namespace td {
namespace {

// The names that the driver manager tells: of drivers of this process's kind, of 32 or 64 bits.
std::vector<std::string> InstalledDrivers() {
  SQLHENV environment = SQL_NULL_HENV;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment))) return {};
  SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  std::vector<std::string> names;
  std::array<SQLWCHAR, 512> name{};
  std::array<SQLWCHAR, 2> attributes{};  // nobody reads them: they may be cut
  SQLSMALLINT length = 0;
  SQLSMALLINT attributesLength = 0;
  SQLUSMALLINT place = SQL_FETCH_FIRST;
  while (SQL_SUCCEEDED(SQLDriversW(
      environment, place, name.data(), static_cast<SQLSMALLINT>(name.size()), &length,
      attributes.data(), static_cast<SQLSMALLINT>(attributes.size()), &attributesLength))) {
    names.push_back(FromWide(name.data()));
    place = SQL_FETCH_NEXT;
  }
  SQLFreeHandle(SQL_HANDLE_ENV, environment);
  return names;
}

// The driver for SQL Server that is a part of Windows.
constexpr std::string_view kSystemsOwn = "SQL Server";

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

// What the names of all drivers for an engine begin with.
constexpr std::array<std::string_view, 6> kFamilies = {
    "PostgreSQL Unicode", "PostgreSQL ANSI", "MariaDB", "MySQL ODBC", "SQLite3", "FreeTDS"};

bool BeginsLike(std::string_view name, std::string_view beginning) {
  return EqualWords(name.substr(0, beginning.size()), beginning);
}

// The numbers in a name: 3, 1, 15 of "MariaDB ODBC 3.1.15 Driver".
std::vector<int> VersionIn(std::string_view name) {
  std::vector<int> numbers;
  while (!name.empty()) {
    int number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    if (error == std::errc() && number >= 0) {
      numbers.push_back(number);
      name.remove_prefix(static_cast<std::size_t>(end - name.data()));
    } else {
      name.remove_prefix(1);
    }
  }
  return numbers;
}

}  // namespace

std::string NewestSqlServerDriver(const std::vector<std::string>& installed) {
  std::string newest(kSystemsOwn);
  int best = 0;
  for (const std::string& name : installed) {
    if (RankOf(name) <= best) continue;
    best = RankOf(name);
    newest = name;
  }
  return newest;
}

std::string NewestDriverLike(std::string_view wanted, const std::vector<std::string>& installed) {
  const auto isWanted = [wanted](const std::string& name) { return EqualWords(name, wanted); };
  if (std::ranges::any_of(installed, isWanted)) return std::string(wanted);
  if (RankOf(wanted) > 0 || EqualWords(wanted, kSystemsOwn)) {
    return NewestSqlServerDriver(installed);
  }
  const auto family = std::ranges::find_if(
      kFamilies, [wanted](std::string_view beginning) { return BeginsLike(wanted, beginning); });
  if (family == kFamilies.end()) return std::string(wanted);
  const std::string* newest = nullptr;
  for (const std::string& name : installed) {
    if (!BeginsLike(name, *family)) continue;
    if (newest == nullptr || VersionIn(*newest) < VersionIn(name)) newest = &name;
  }
  return newest == nullptr ? std::string(wanted) : *newest;
}

std::string InstalledDriver(const std::string& wanted) {
  return NewestDriverLike(wanted, InstalledDrivers());
}

std::string InstalledSqlServerDriver() {
  return NewestSqlServerDriver(InstalledDrivers());
}

}  // namespace td
