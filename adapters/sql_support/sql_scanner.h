// Splits a statement's text into the pieces that a dialect step must tell apart.
#pragma once

#include <cstddef>
#include <string_view>

namespace td {

enum class SqlToken {
  kEnd,
  kBlank,   // white space, or one comment
  kQuoted,  // a text or a name in quotes of any kind
  kWord,    // a keyword or a name without quotes
  kOther,   // a number, a parameter or a single character
};

// What stands in quotes or is a comment to one engine and not to another. Every engine has texts
// in single and names in double quotes, and comments from -- and between /* and */.
struct SqlLexicon {
  bool brackets = false;         // names between [ and ]
  bool doubledBrackets = false;  // in which ]] stands for ]
  bool backquotes = false;       // names between ` and `
  bool dollarQuotes = false;     // texts between $tag$ and $tag$
  bool escapeTexts = false;      // E'…', in which a backslash escapes
  bool nestedComments = false;   // /* /* */ */
  bool hashComments = false;     // # to the end of the line
  // Only a -- with white space behind it begins a comment, and /*! … */ is code.
  bool guardedComments = false;
};

inline constexpr SqlLexicon kSqliteLexicon{.brackets = true, .backquotes = true};

// Walks over the text that it is given and never changes it: the pieces put together are the text.
// Quotes and comments that never end reach to the end of the text.
class SqlScanner {
 public:
  SqlScanner(std::string_view sql, const SqlLexicon& lexicon) : lexicon_(lexicon), rest_(sql) {}

  // Goes on to the next piece, which Text() then returns.
  SqlToken Next();
  [[nodiscard]] std::string_view Text() const { return text_; }

  // The first piece behind the current one that is no blank; the scanner stays where it is.
  [[nodiscard]] std::string_view PeekPastBlanks() const;
  // All text behind the current piece.
  [[nodiscard]] std::string_view Rest() const { return rest_; }

 private:
  [[nodiscard]] std::size_t BlankLength() const;
  [[nodiscard]] std::size_t BlockCommentLength() const;
  [[nodiscard]] std::size_t QuotedLength() const;
  [[nodiscard]] std::size_t DollarQuotedLength() const;
  [[nodiscard]] std::size_t EscapeTextLength() const;
  [[nodiscard]] std::size_t WordLength(std::size_t from) const;

  SqlLexicon lexicon_;
  std::string_view rest_;
  std::string_view text_;
};

// Whether two words are equal, the letters A to Z taken without regard to case.
[[nodiscard]] bool EqualWords(std::string_view left, std::string_view right);

}  // namespace td
