#include "sqlite/connection_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "sqlite/sql_scanner.h"
#include "sqlite/sqlite_failure.h"

namespace td {
namespace {

constexpr std::string_view kPrefix = "sqlite:";
constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

Failure WrongText(const std::string& reason) {
  return DatabaseFailure("连接文本有误：" + reason +
                         "。应为“sqlite:文件路径”或“Provider=SQLite;Data Source=文件路径”");
}

// The part of `rest` before the mark, or all of it; it and the mark are removed from `rest`.
std::string_view TakeUntil(std::string_view& rest, char mark) {
  const std::string_view part = rest.substr(0, rest.find(mark));
  rest.remove_prefix(std::min(part.size() + 1, rest.size()));
  return part;
}

// The value between the quotes at the front of `rest`, which is left behind the closing quote.
std::string TakeQuoted(std::string_view& rest) {
  const char quote = rest.front();
  rest.remove_prefix(1);
  std::string value;
  for (;;) {
    if (rest.find(quote) == std::string_view::npos) throw WrongText("引号没有结束");
    value += TakeUntil(rest, quote);
    if (rest.empty() || rest.front() != quote) return value;
    value += quote;
    rest.remove_prefix(1);
  }
}

std::string TakeValue(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
  if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) {
    return std::string(Trimmed(TakeUntil(rest, ';')));
  }
  std::string value = TakeQuoted(rest);
  if (!Trimmed(TakeUntil(rest, ';')).empty()) throw WrongText("引号后还有文字");
  return value;
}

struct Entries {
  std::optional<std::string> provider;
  std::optional<std::string> dataSource;
};

void Put(std::optional<std::string>& entry, std::string_view key, std::string value) {
  if (entry) throw WrongText("“" + std::string(key) + "”出现了两次");
  entry = std::move(value);
}

Entries ReadEntries(std::string_view rest) {
  constexpr std::array<std::string_view, 3> kWithoutEffect = {"User ID", "Password",
                                                              "Persist Security Info"};
  Entries entries;
  while (!Trimmed(rest).empty()) {
    const std::string_view entry = rest.substr(0, rest.find(';'));
    if (Trimmed(entry).empty()) {
      TakeUntil(rest, ';');
      continue;
    }
    if (entry.find('=') == std::string_view::npos) throw WrongText("缺少等号");
    const std::string_view key = Trimmed(TakeUntil(rest, '='));
    std::string value = TakeValue(rest);
    const auto isKey = [key](std::string_view name) { return EqualWords(key, name); };
    if (isKey("Provider")) {
      Put(entries.provider, key, std::move(value));
    } else if (isKey("Data Source")) {
      Put(entries.dataSource, key, std::move(value));
    } else if (std::none_of(kWithoutEffect.begin(), kWithoutEffect.end(), isKey)) {
      throw WrongText("不认识“" + std::string(key) + "”");
    }
  }
  return entries;
}

}  // namespace

std::string DatabasePath(const std::string& connectionText) {
  const std::string_view text = connectionText;
  std::string path;
  if (text.find('\0') != std::string_view::npos) throw WrongText("含有空字符");
  if (EqualWords(text.substr(0, kPrefix.size()), kPrefix)) {
    path = text.substr(kPrefix.size());
  } else {
    Entries entries = ReadEntries(text);
    if (!entries.provider || !EqualWords(*entries.provider, "SQLite")) {
      throw WrongText("没有指明 SQLite");
    }
    path = std::move(entries.dataSource).value_or("");
  }
  if (path.empty()) throw WrongText("没有文件路径");
  return path;
}

}  // namespace td
