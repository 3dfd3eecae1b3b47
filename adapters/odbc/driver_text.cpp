#include "odbc/driver_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "odbc/installed_drivers.h"
#include "odbc/sql_server_driver.h"
#include "sql_support/connection_entries.h"
#include "sql_support/sql_scanner.h"

namespace td {
namespace {

constexpr std::size_t kLongestText = 8192;

using Entries = std::vector<ConnectionEntry>;

// The value of the first entry that has one of the keys; empty if none has.
std::string Find(const Entries& entries, std::initializer_list<std::string_view> keys) {
  for (const ConnectionEntry& entry : entries) {
    const bool wanted = std::any_of(keys.begin(), keys.end(), [&entry](std::string_view key) {
      return EqualWords(entry.key, key);
    });
    if (wanted) return entry.value;
  }
  return {};
}

bool StartsWithWord(std::string_view text, std::string_view word) {
  return EqualWords(text.substr(0, word.size()), word);
}

// Adds KEY=value; nothing for an empty value. Braces only where they are needed, as drivers do not
// take them everywhere.
void Add(std::string& text, std::string_view key, std::string_view value) {
  if (value.empty()) return;
  text.append(key).append("=");
  const bool plain = value.find_first_of(";{}[]()=,?*!@ '\"") == std::string_view::npos;
  if (plain) {
    text.append(value);
  } else {
    text += '{';
    for (const char c : value) text.append(c == '}' ? 2 : 1, c);
    text += '}';
  }
  text += ';';
}

void AddServer(std::string& text, std::string_view server) {
  if (StartsWithWord(server, "tcp:")) server.remove_prefix(4);
  const auto comma = server.find(',');
  std::string_view host = server.substr(0, comma);
  if (host == "." || EqualWords(host, "(local)")) host = "localhost";
  const bool hasPort = comma != std::string_view::npos;
  text += SqlServerAddress(host, hasPort ? server.substr(comma + 1) : std::string_view());
}

void AddUser(std::string& text, const Entries& entries) {
  Add(text, "Database", Find(entries, {"Initial Catalog", "Database"}));
  Add(text, "UID", Find(entries, {"User ID", "UID"}));
  Add(text, "PWD", Find(entries, {"Password", "PWD"}));
}

bool IsNo(std::string_view value) {
  constexpr std::array<std::string_view, 4> kWords = {"no", "false", "0", "optional"};
  return std::ranges::any_of(kWords,
                             [value](std::string_view word) { return EqualWords(value, word); });
}

// The value of a flag in words that every driver knows; "strict" only the newest does.
std::string AsFlag(const std::string& value) {
  if (value.empty()) return {};
  if (EqualWords(value, "strict")) return "strict";
  return IsNo(value) ? "no" : "yes";
}

Encryption EncryptionIn(const Entries& entries) {
  return {.isAsked = AsFlag(Find(entries, {"Encrypt", "Use Encryption for Data"})),
          .trustsServer =
              AsFlag(Find(entries, {"TrustServerCertificate", "Trust Server Certificate"}))};
}

std::string SqlServerText(const Entries& entries) {
  const std::string integrated = Find(entries, {"Integrated Security", "Trusted_Connection"});
  const bool asSystemUser = !integrated.empty() && !IsNo(integrated);
  if (asSystemUser && SystemUserLogOn().empty()) {
    throw WrongConnectionText("不能用操作系统的用户登录，请写明 User ID 和 Password");
  }
  const std::string server =
      Find(entries, {"Data Source", "Server", "Address", "Addr", "Network Address"});
  if (server.empty()) throw WrongConnectionText("缺少 Data Source");
  std::string text = SqlServerDriver(EncryptionIn(entries));
  AddServer(text, server);
  if (asSystemUser) text += SystemUserLogOn();
  AddUser(text, entries);
  return text;
}

std::string DataSourceText(const Entries& entries) {
  std::string text = Find(entries, {"Extended Properties"});
  if (!text.empty() && text.back() != ';') text += ';';
  Add(text, "DSN", Find(entries, {"Data Source", "DSN"}));
  Add(text, "Driver", Find(entries, {"Driver"}));
  AddUser(text, entries);
  return text;
}

std::string FromProvider(std::string_view provider, const Entries& entries) {
  constexpr std::array<std::string_view, 3> kSqlServer = {"SQLOLEDB", "SQLNCLI", "MSOLEDBSQL"};
  if (StartsWithWord(provider, "MSDASQL")) return DataSourceText(entries);
  const bool known =
      std::any_of(kSqlServer.begin(), kSqlServer.end(),
                  [provider](std::string_view name) { return StartsWithWord(provider, name); });
  if (!known) throw WrongConnectionText("不认识 Provider=" + std::string(provider));
  return SqlServerText(entries);
}

// Drivers for SQL Server encrypt from the 18th on unless they are told not to, and want a
// certificate then that few servers have.
bool EncryptsUnasked(std::string_view driver) {
  constexpr std::string_view kBegin = "ODBC Driver ";
  constexpr int kFirst = 18;
  if (!StartsWithWord(driver, kBegin)) return false;
  driver.remove_prefix(kBegin.size());
  int number = 0;
  std::from_chars(driver.data(), driver.data() + driver.size(), number);
  return number >= kFirst;
}

// The text for the driver under the name that it has on this machine.
std::string OwnText(const std::string& text, const Entries& entries) {
  const std::string wanted = Find(entries, {"Driver"});
  const std::string installed = wanted.empty() ? wanted : InstalledDriver(wanted);
  return installed == wanted ? text : TextForDriver(installed, entries);
}

// SQLite's driver waits for a lock, unless it is told otherwise, a hundred seconds; it is told in
// milliseconds.
std::string WithLockWait(std::string text, const Entries& entries) {
  if (!StartsWithWord(Find(entries, {"Driver"}), "SQLite")) return text;
  if (!Find(entries, {"Timeout"}).empty()) return text;
  if (!text.ends_with(';')) text += ';';
  return text + "Timeout=1000;";
}

}  // namespace

std::string TextForDriver(const std::string& driver, const std::vector<ConnectionEntry>& entries) {
  std::string text = "Driver={" + driver + "};";
  for (const ConnectionEntry& entry : entries) {
    if (!EqualWords(entry.key, "Driver")) Add(text, entry.key, entry.value);
  }
  const bool wasOpen =
      !EncryptsUnasked(Find(entries, {"Driver"})) && Find(entries, {"Encrypt"}).empty();
  return wasOpen && EncryptsUnasked(driver) ? text + "Encrypt=no;" : text;
}

DriverText ToDriverText(const std::string& connectionText) {
  if (connectionText.find('\0') != std::string::npos) throw WrongConnectionText("含有空字符");
  // The driver manager counts in 16 bits.
  if (connectionText.size() > kLongestText) throw WrongConnectionText("太长");
  const Entries entries = ReadConnectionEntries(connectionText);
  DriverText result;
  const std::string provider = Find(entries, {"Provider"});
  if (!provider.empty()) {
    result.text = FromProvider(provider, entries);
  } else if (!Find(entries, {"Driver", "DSN", "FileDSN"}).empty()) {
    result.text = WithLockWait(OwnText(connectionText, entries), entries);
  } else {
    throw WrongConnectionText("应含有 Driver=、DSN= 或 Provider=");
  }
  result.password = Find(ReadConnectionEntries(result.text), {"PWD", "Password"});
  return result;
}

}  // namespace td
