// Splits a statement's text into the pieces that a dialect step must tell apart.
#pragma once

#include <cstddef>
#include <string_view>

namespace td {

enum class SqlToken {
  kEnd,
  kBlank,   // white space, or one comment
  kQuoted,  // a text or a name in quotes of any kind, brackets included
  kWord,    // a keyword or a name without quotes
  kOther,   // a number, a parameter or a single character
};

// Walks over the text that it is given and never changes it: the pieces put together are the text.
// Quotes and comments that never end reach to the end of the text.
class SqlScanner {
 public:
  explicit SqlScanner(std::string_view sql) : rest_(sql) {}

  // Goes on to the next piece, which Text() then returns.
  SqlToken Next();
  [[nodiscard]] std::string_view Text() const { return text_; }

  // The first piece behind the current one that is no blank; the scanner stays where it is.
  [[nodiscard]] std::string_view PeekPastBlanks() const;

 private:
  [[nodiscard]] std::size_t BlankLength() const;
  [[nodiscard]] std::size_t QuotedLength() const;
  [[nodiscard]] std::size_t WordLength(std::size_t from) const;

  std::string_view rest_;
  std::string_view text_;
};

// Whether two words are equal, the letters A to Z taken without regard to case.
[[nodiscard]] bool EqualWords(std::string_view left, std::string_view right);

}  // namespace td
