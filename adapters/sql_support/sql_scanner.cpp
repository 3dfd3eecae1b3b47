#include "sql_support/sql_scanner.h"

#include <algorithm>

namespace td {
namespace {

constexpr std::string_view kWhiteSpace = " \t\n\f\r";

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Every character outside ASCII can be part of a name.
bool IsWordCharacter(char c) {
  const char lower = Lower(c);
  return (lower >= 'a' && lower <= 'z') || IsDigit(c) || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

std::size_t EndOf(std::string_view text, std::size_t found, std::size_t markLength) {
  return found == std::string_view::npos ? text.size() : found + markLength;
}

}  // namespace

std::size_t SqlScanner::BlankLength() const {
  if (rest_.starts_with("--")) return EndOf(rest_, rest_.find('\n'), 1);
  if (rest_.starts_with("/*")) return EndOf(rest_, rest_.find("*/", 2), 2);
  return std::min(rest_.find_first_not_of(kWhiteSpace), rest_.size());
}

std::size_t SqlScanner::QuotedLength() const {
  const char open = rest_.front();
  if (open == '[') return EndOf(rest_, rest_.find(']'), 1);
  if (open != '\'' && open != '"' && open != '`') return 0;
  std::size_t at = 1;
  for (;;) {
    at = EndOf(rest_, rest_.find(open, at), 1);
    if (at == rest_.size() || rest_[at] != open) return at;
    ++at;  // a doubled quote stands for itself
  }
}

std::size_t SqlScanner::WordLength(std::size_t from) const {
  const auto end = std::find_if_not(rest_.begin() + static_cast<std::ptrdiff_t>(from), rest_.end(),
                                    IsWordCharacter);
  return static_cast<std::size_t>(end - rest_.begin());
}

SqlToken SqlScanner::Next() {
  std::size_t length = 0;
  SqlToken token = SqlToken::kEnd;
  if (rest_.empty()) {
    text_ = {};
    return token;
  }
  const char first = rest_.front();
  if ((length = BlankLength()) > 0) {
    token = SqlToken::kBlank;
  } else if ((length = QuotedLength()) > 0) {
    token = SqlToken::kQuoted;
  } else if (IsWordCharacter(first) && !IsDigit(first) && first != '$') {
    token = SqlToken::kWord;
    length = WordLength(0);
  } else {
    // A number or a parameter takes the letters that follow with it.
    const bool takesLetters =
        IsDigit(first) || std::string_view("$@:#").find(first) != std::string_view::npos;
    token = SqlToken::kOther;
    length = takesLetters ? WordLength(1) : 1;
  }
  text_ = rest_.substr(0, length);
  rest_.remove_prefix(length);
  return token;
}

std::string_view SqlScanner::PeekPastBlanks() const {
  SqlScanner ahead = *this;
  while (ahead.Next() == SqlToken::kBlank) {
  }
  return ahead.Text();
}

bool EqualWords(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Lower(a) == Lower(b); });
}

}  // namespace td
