// Any text is split into pieces that put together are the text again, under the rules of every
// engine; as a connection text it is a list of entries or a refusal.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/failure.h"
#include "sql_support/connection_entries.h"
#include "sql_support/statement_text.h"

namespace {

constexpr td::SqlLexicon kEverything{.brackets = true,
                                     .doubledBrackets = true,
                                     .backquotes = true,
                                     .dollarQuotes = true,
                                     .escapeTexts = true,
                                     .nestedComments = true,
                                     .hashComments = true,
                                     .guardedComments = true};
constexpr std::array kLexicons{td::SqlLexicon{}, td::kSqliteLexicon, kEverything};

void SplitAndJoin(const std::string& text, const td::SqlLexicon& lexicon) {
  std::string joined;
  td::SqlScanner scanner(text, lexicon);
  while (scanner.Next() != td::SqlToken::kEnd) {
    if (scanner.Text().empty()) std::abort();
    joined += scanner.Text();
  }
  if (joined != text) std::abort();
}

template <class Action>
void AllowRefusal(Action action) {
  try {
    action();
  } catch (const td::Failure&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  for (const td::SqlLexicon& lexicon : kLexicons) {
    SplitAndJoin(text, lexicon);
    AllowRefusal([&] { td::CheckOneStatement(text, lexicon); });
  }
  AllowRefusal([&] { (void)td::ReadConnectionEntries(text); });
  return 0;
}
