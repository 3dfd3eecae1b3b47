#include "sql_support/connection_entries.h"

#include <algorithm>
#include <utility>

#include "sql_support/database_failure.h"

namespace td {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The part of `rest` before the mark, or all of it; it and the mark are removed from `rest`.
std::string_view TakeUntil(std::string_view& rest, char mark) {
  const std::string_view part = rest.substr(0, rest.find(mark));
  rest.remove_prefix(std::min(part.size() + 1, rest.size()));
  return part;
}

// The value between the quotes at the front of `rest`, which is left behind the closing one.
std::string TakeQuoted(std::string_view& rest) {
  const char close = rest.front() == '{' ? '}' : rest.front();
  rest.remove_prefix(1);
  std::string value;
  for (;;) {
    if (rest.find(close) == std::string_view::npos) throw WrongConnectionText("引号没有结束");
    value += TakeUntil(rest, close);
    if (rest.empty() || rest.front() != close) return value;
    value += close;
    rest.remove_prefix(1);
  }
}

std::string TakeValue(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
  if (rest.empty() || std::string_view("'\"{").find(rest.front()) == std::string_view::npos) {
    return std::string(Trimmed(TakeUntil(rest, ';')));
  }
  std::string value = TakeQuoted(rest);
  if (!Trimmed(TakeUntil(rest, ';')).empty()) throw WrongConnectionText("引号后还有文字");
  return value;
}

}  // namespace

Failure WrongConnectionText(std::string_view reason) {
  return DatabaseFailure("连接文本有误：" + std::string(reason));
}

std::vector<ConnectionEntry> ReadConnectionEntries(std::string_view text) {
  std::vector<ConnectionEntry> entries;
  while (!text.empty()) {
    const std::string_view entry = text.substr(0, text.find(';'));
    if (Trimmed(entry).empty()) {
      TakeUntil(text, ';');
      continue;
    }
    if (entry.find('=') == std::string_view::npos) throw WrongConnectionText("缺少等号");
    std::string key(Trimmed(TakeUntil(text, '=')));
    entries.push_back({std::move(key), TakeValue(text)});
  }
  return entries;
}

}  // namespace td
