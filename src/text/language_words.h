// The words and the usual orders that a language gives to dates and flags.
#pragma once

#include <array>
#include <string_view>

#include "text/format_value.h"

namespace td {

struct FlagWords {
  std::string_view yes;
  std::string_view no;
};

struct LanguageWords {
  std::array<std::string_view, 7> weekdays;  // from Sunday
  std::array<std::string_view, 7> shortWeekdays;
  std::array<std::string_view, 12> months;
  std::array<std::string_view, 12> shortMonths;
  std::string_view forenoon;
  std::string_view afternoon;
  std::string_view longDate;  // pictures
  std::string_view mediumDate;
  std::string_view mediumTime;
  FlagWords yesNo;
  FlagWords trueFalse;
  FlagWords onOff;
};

[[nodiscard]] const LanguageWords& WordsOf(FormatLanguage language);

}  // namespace td
