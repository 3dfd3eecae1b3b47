#include "explanation/language.h"

#include <cstdlib>

namespace td {

Language LanguageOfLocale() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    return std::string_view(value).starts_with("zh") ? Language::kChinese : Language::kEnglish;
  }
  return Language::kEnglish;
}

std::string FillPlaces(std::string_view sentence, const std::string_view* texts,
                       std::size_t count) {
  std::string filled;
  for (std::size_t i = 0; i < sentence.size(); ++i) {
    const bool isPlace = sentence[i] == '{' && i + 2 < sentence.size() && sentence[i + 2] == '}';
    const std::size_t place = isPlace ? static_cast<std::size_t>(sentence[i + 1] - '0') : count;
    if (place >= count) {
      filled += sentence[i];
      continue;
    }
    filled += texts[place];
    i += 2;
  }
  return filled;
}

}  // namespace td
