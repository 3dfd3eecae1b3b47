#include <algorithm>

#include "checker/finding_messages.h"

namespace td::checker {
namespace {

const std::string& ArgumentAt(std::span<const std::string> arguments, char digit) {
  static const std::string none;
  const auto index = static_cast<std::size_t>(digit - '0');
  return index < arguments.size() ? arguments[index] : none;
}

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

}  // namespace

std::string FillIn(std::string_view words, std::span<const std::string> arguments) {
  std::string text;
  while (!words.empty()) {
    const bool isMark = words.size() > 2 && IsDigit(words[1]);
    if (isMark && words[0] == '{' && words[2] == '}') {
      text += ArgumentAt(arguments, words[1]);
      words.remove_prefix(3);
    } else if (isMark && words[0] == '<' && words[2] == '?') {
      const bool isThere = !ArgumentAt(arguments, words[1]).empty();
      words.remove_prefix(3);
      const std::size_t end = std::min(words.find('>'), words.size());
      const std::string_view choice = words.substr(0, end);
      const std::size_t bar = std::min(choice.find('|'), choice.size());
      const std::string_view without = choice.substr(std::min(bar + 1, choice.size()));
      text += FillIn(isThere ? choice.substr(0, bar) : without, arguments);
      words.remove_prefix(std::min(end + 1, words.size()));
    } else {
      text += words.front();
      words.remove_prefix(1);
    }
  }
  return text;
}

FindingText TextOf(const Finding& finding, Language language) {
  const FindingMessage& message = MessageOf(finding.kind);
  const FindingWords& words = language == Language::kChinese ? message.chinese : message.english;
  return {FillIn(words.wrong, finding.arguments), FillIn(words.effect, finding.arguments),
          FillIn(words.mend, finding.arguments)};
}

}  // namespace td::checker
