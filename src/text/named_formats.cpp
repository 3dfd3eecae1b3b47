#include "text/named_formats.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/failure.h"
#include "text/conversions.h"
#include "text/language_words.h"
#include "text/picture_operand.h"

namespace td {

namespace {

constexpr std::string_view kGeneralNumber = "general number";

struct NamedPicture {
  std::string_view name;
  std::string_view picture;
};

constexpr std::array<NamedPicture, 9> kPictures{{
    {"currency", "¥#,##0.00;¥-#,##0.00"},
    {"fixed", "0.00"},
    {"standard", "#,##0.00"},
    {"percent", "0.00%"},
    {"scientific", "0.00E+00"},
    {"general date", "c"},
    {"short date", "ddddd"},
    {"long time", "ttttt"},
    {"short time", "hh:nn"},
}};

std::optional<std::string_view> PictureOf(std::string_view name, const LanguageWords& words) {
  if (name == "long date") return words.longDate;
  if (name == "medium date") return words.mediumDate;
  if (name == "medium time") return words.mediumTime;
  const auto* const found =
      std::find_if(kPictures.begin(), kPictures.end(),
                   [name](const NamedPicture& picture) { return picture.name == name; });
  if (found == kPictures.end()) return std::nullopt;
  return found->picture;
}

std::optional<FlagWords> FlagWordsOf(std::string_view name, const LanguageWords& words) {
  if (name == "yes/no") return words.yesNo;
  if (name == "true/false") return words.trueFalse;
  if (name == "on/off") return words.onOff;
  return std::nullopt;
}

std::string FormatFlag(const Value& value, const FlagWords& words) {
  try {
    return std::string(ToFlag(value) ? words.yes : words.no);
  } catch (const Failure&) {
    return ToText(value);  // Null, or a text that is no flag
  }
}

std::string FormatGeneralNumber(const Value& value) {
  if (std::holds_alternative<std::int64_t>(value)) return ToText(value);
  const std::optional<DecimalDigits> number = NumberOperand(value);
  return number ? GeneralNumber(*number) : ToText(value);
}

}  // namespace

std::optional<std::string> FormatNamed(const Value& value, std::string_view name,
                                       FormatLanguage language) {
  const std::string lower = LowerCase(name);
  const LanguageWords& words = WordsOf(language);
  if (lower == kGeneralNumber) return FormatGeneralNumber(value);
  if (const auto flagWords = FlagWordsOf(lower, words)) return FormatFlag(value, *flagWords);
  if (const auto picture = PictureOf(lower, words)) return FormatValue(value, *picture, language);
  return std::nullopt;
}

}  // namespace td
