#include <cstdlib>

#include "explanation/language.h"

namespace td {

Language LanguageOfLocale() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    return std::string_view(value).starts_with("zh") ? Language::kChinese : Language::kEnglish;
  }
  return Language::kEnglish;
}

}  // namespace td
