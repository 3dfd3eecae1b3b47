// The words of a statement.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace td::recording {

struct Token {
  enum class Kind { kName, kNumber, kText, kSymbol, kEnd };
  Kind kind = Kind::kEnd;
  std::string text;          // a text without its quotes
  std::size_t position = 0;  // of its first byte, from 0
};

// Splits a statement; the last token is kEnd. Fails on a character that no statement may hold and
// on a text that is not closed.
[[nodiscard]] std::vector<Token> Tokenize(std::string_view sql);

// Fails with kDatabaseFailed. The description names a place in the statement and never quotes it:
// the statement may hold the words by which a lock conflict is told.
[[noreturn]] void FailAt(const std::string& what, std::size_t position);

// Whether two identifiers or keywords are the same; the case of the letters A to Z is ignored.
[[nodiscard]] bool SameName(std::string_view a, std::string_view b);

}  // namespace td::recording
