#include "explanation/language.h"
#include "windows/api/windows_api.h"

namespace td {

Language LanguageOfLocale() {
  return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_CHINESE ? Language::kChinese
                                                                   : Language::kEnglish;
}

}  // namespace td
