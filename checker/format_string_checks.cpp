// Pictures of numbers, tried on numbers.
#include <algorithm>

#include "checker/checks.h"
#include "platform/failure.h"
#include "store/template_item.h"
#include "text/conversions.h"
#include "text/format_value.h"
#include "text/named_formats.h"
#include "text/picture_sections.h"

namespace td::checker {
namespace {

using enum FindingKind;

constexpr std::string_view kDigitPlaces = "0#";

std::string Formatted(double number, const std::string& picture) {
  try {
    return FormatValue(number, picture);
  } catch (const Failure& failure) {
    return failure.Description();
  }
}

bool HasPlaces(const PictureSection& section) {
  return std::ranges::any_of(section,
                             [](const PictureMark& mark) { return mark.IsOneOf(kDigitPlaces); });
}

// What stands in front of the first place for digits, as it was meant to be printed.
std::string Prefix(const PictureSection& section) {
  std::string prefix;
  for (const PictureMark& mark : section) {
    if (mark.IsOneOf(kDigitPlaces)) break;
    prefix += mark.text;
  }
  return prefix;
}

// The prefix in quotes and the rest of the picture behind it.
std::string WithQuotedPrefix(const std::string& prefix, const std::string& picture) {
  return picture.starts_with(prefix) ? "\"" + prefix + "\"" + picture.substr(prefix.size()) : "";
}

// A number's picture by its looks: places for digits, and in front of them a point or letters,
// which are no letters in a picture of dates and texts.
void CheckMeaning(const std::string& picture, std::size_t item, const FormatRows& format,
                  FindingList& findings) {
  constexpr double kProbe = 1234;
  const std::vector<PictureSection> sections = ReadSections(picture);
  const PictureSection& first = sections.front();
  const std::string shown = Formatted(kProbe, picture);
  const PictureKind kind = KindOf(sections);
  if (kind == PictureKind::kNumber && !HasPlaces(first)) {
    if (Formatted(kProbe, picture) == Formatted(kProbe * 2, picture)) {
      findings.AddItem(item, kFormatStringConstant, {picture, shown});
    }
    return;
  }
  if (!HasPlaces(first)) {
    if (kind == PictureKind::kDate) {
      findings.AddItem(item, kFormatStringDate, {picture, ToText(kProbe), shown},
                       UpdateItem(format, item, "FFormatString=''"));
    }
    return;
  }

  const std::string prefix = Prefix(first);
  const bool isLetterless = prefix.find_first_not_of(".,-+ $%()") == std::string::npos;
  const bool isMisread =
      kind != PictureKind::kNumber || (!isLetterless && !shown.starts_with(prefix));
  // Commas behind the places divide by a thousand.
  const bool isDivided = kind == PictureKind::kNumber && first.back().Is(',');
  if (!isMisread && !isDivided) return;
  const std::string quoted = isMisread ? WithQuotedPrefix(prefix, picture) : "";
  findings.AddItem(
      item, kFormatString, {picture, ToText(kProbe), shown, quoted},
      quoted.empty() ? "" : UpdateItem(format, item, "FFormatString=" + Quoted(quoted)));
}

}  // namespace

void CheckFormatStrings(const FormatRows& format, const TrialResult& trial, FindingList& findings) {
  for (std::size_t i = 0; i < format.ItemCount(); ++i) {
    const StoredRow item = format.Item(i);
    const ItemTrial& tried = trial.items[i];
    const std::string picture = item.Text("FFormatString");
    const Value* field = item.Find("FFieldName");
    const bool isText = item.Number("FTypeID") == static_cast<double>(ItemKind::kText);
    const bool hasField = field != nullptr && !IsNull(*field);
    if (picture.empty() || !isText || !hasField || tried.times == 0) continue;
    if (!tried.columnsRead.contains("fformatstring")) {
      if (tried.drawn > 0 && !findings.HasItem(i, kFieldBand)) {
        findings.AddItem(i, kFormatStringUnused, {picture},
                         UpdateItem(format, i, "FFormatString=''"));
      }
    } else if (!FormatNamed(Value(1.0), picture, FormatLanguage::kChinese)) {
      CheckMeaning(picture, i, format, findings);
    }
  }
}

}  // namespace td::checker
