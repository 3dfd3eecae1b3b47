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

bool IsOneOf(std::string_view characters, char c) {
  return characters.find(c) != std::string_view::npos;
}

std::size_t EndOf(std::string_view text, std::size_t found, std::size_t markLength) {
  return found == std::string_view::npos ? text.size() : found + markLength;
}

// Length of a quotation at the start of a text, in which a doubled closing quote stands for itself.
std::size_t DoublingQuoteLength(std::string_view text, char close) {
  std::size_t at = 1;
  for (;;) {
    at = EndOf(text, text.find(close, at), 1);
    if (at == text.size() || text[at] != close) return at;
    ++at;
  }
}

}  // namespace

std::size_t SqlScanner::BlankLength() const {
  const bool guarded = lexicon_.guardedComments;
  const bool dashes =
      rest_.starts_with("--") && (!guarded || rest_.size() == 2 || IsOneOf(kWhiteSpace, rest_[2]));
  if (dashes || (lexicon_.hashComments && rest_.front() == '#')) {
    return EndOf(rest_, rest_.find('\n'), 1);
  }
  if (rest_.starts_with("/*")) {
    const bool code = guarded && (rest_.starts_with("/*!") || rest_.starts_with("/*M!"));
    return code ? 0 : BlockCommentLength();
  }
  return std::min(rest_.find_first_not_of(kWhiteSpace), rest_.size());
}

std::size_t SqlScanner::BlockCommentLength() const {
  std::size_t depth = 1;
  std::size_t at = 2;
  while (depth > 0) {
    const std::size_t close = rest_.find("*/", at);
    const std::size_t open = lexicon_.nestedComments ? rest_.find("/*", at) : close;
    if (close == std::string_view::npos) return rest_.size();
    depth = open < close ? depth + 1 : depth - 1;
    at = std::min(open, close) + 2;
  }
  return at;
}

std::size_t SqlScanner::QuotedLength() const {
  const char open = rest_.front();
  if (open == '\'' || open == '"') return DoublingQuoteLength(rest_, open);
  if (open == '`' && lexicon_.backquotes) return DoublingQuoteLength(rest_, open);
  if (open == '[' && lexicon_.doubledBrackets) return DoublingQuoteLength(rest_, ']');
  if (open == '[' && lexicon_.brackets) return EndOf(rest_, rest_.find(']'), 1);
  if (open == '$' && lexicon_.dollarQuotes) return DollarQuotedLength();
  if (Lower(open) == 'e' && lexicon_.escapeTexts) return EscapeTextLength();
  return 0;
}

std::size_t SqlScanner::DollarQuotedLength() const {
  const auto tagEnd = std::find_if_not(rest_.begin() + 1, rest_.end(),
                                       [](char c) { return c != '$' && IsWordCharacter(c); });
  if (tagEnd == rest_.end() || *tagEnd != '$' || (rest_.size() > 1 && IsDigit(rest_[1]))) return 0;
  const std::string_view tag =
      rest_.substr(0, static_cast<std::size_t>(tagEnd - rest_.begin()) + 1);
  return EndOf(rest_, rest_.find(tag, tag.size()), tag.size());
}

std::size_t SqlScanner::EscapeTextLength() const {
  if (rest_.size() < 2 || rest_[1] != '\'') return 0;
  for (std::size_t at = 2; at < rest_.size(); ++at) {
    if (rest_[at] == '\\') {
      ++at;
    } else if (rest_[at] == '\'') {
      if (at + 1 == rest_.size() || rest_[at + 1] != '\'') return at + 1;
      ++at;
    }
  }
  return rest_.size();
}

std::size_t SqlScanner::WordLength(std::size_t from) const {
  const auto end = std::find_if_not(rest_.begin() + static_cast<std::ptrdiff_t>(from), rest_.end(),
                                    IsWordCharacter);
  return static_cast<std::size_t>(end - rest_.begin());
}

SqlToken SqlScanner::Next() {
  text_ = {};
  if (rest_.empty()) return SqlToken::kEnd;
  SqlToken token = SqlToken::kOther;
  std::size_t length = 0;
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
    length = IsDigit(first) || IsOneOf("$@:#", first) ? WordLength(1) : 1;
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
