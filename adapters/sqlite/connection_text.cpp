#include "sqlite/connection_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "sql_support/connection_entries.h"
#include "sql_support/sql_scanner.h"

namespace td {
namespace {

constexpr std::string_view kPrefix = "sqlite:";

Failure WrongText(const std::string& reason) {
  return WrongConnectionText(reason +
                             "。应为“sqlite:文件路径”或“Provider=SQLite;Data Source=文件路径”");
}

void Put(std::optional<std::string>& entry, ConnectionEntry& read) {
  if (entry) throw WrongText("“" + read.key + "”出现了两次");
  entry = std::move(read.value);
}

std::string DataSource(std::string_view text) {
  constexpr std::array<std::string_view, 3> kWithoutEffect = {"User ID", "Password",
                                                              "Persist Security Info"};
  std::optional<std::string> provider;
  std::optional<std::string> dataSource;
  for (ConnectionEntry& entry : ReadConnectionEntries(text)) {
    const auto isKey = [&entry](std::string_view name) { return EqualWords(entry.key, name); };
    if (isKey("Provider")) {
      Put(provider, entry);
    } else if (isKey("Data Source")) {
      Put(dataSource, entry);
    } else if (std::none_of(kWithoutEffect.begin(), kWithoutEffect.end(), isKey)) {
      throw WrongText("不认识“" + entry.key + "”");
    }
  }
  if (!provider || !EqualWords(*provider, "SQLite")) throw WrongText("没有指明 SQLite");
  return std::move(dataSource).value_or("");
}

}  // namespace

std::string DatabasePath(const std::string& connectionText) {
  const std::string_view text = connectionText;
  if (text.find('\0') != std::string_view::npos) throw WrongText("含有空字符");
  const bool hasPrefix = EqualWords(text.substr(0, kPrefix.size()), kPrefix);
  std::string path = hasPrefix ? std::string(text.substr(kPrefix.size())) : DataSource(text);
  if (path.empty()) throw WrongText("没有文件路径");
  return path;
}

}  // namespace td
