#include "text/format_value.h"

#include <optional>
#include <vector>

#include "text/conversions.h"
#include "text/date_picture.h"
#include "text/named_formats.h"
#include "text/number_picture.h"
#include "text/picture_operand.h"
#include "text/picture_sections.h"
#include "text/text_picture.h"

namespace td {

std::string FormatValue(const Value& value, std::string_view picture, FormatLanguage language) {
  if (picture.empty()) return ToText(value);
  if (const auto named = FormatNamed(value, picture, language)) return *named;

  const std::vector<PictureSection> sections = ReadSections(picture);
  switch (KindOf(sections)) {
    case PictureKind::kText:
      return IsNull(value) ? FormatNullText(sections) : FormatText(ToText(value), sections);
    case PictureKind::kDate: {
      const std::optional<double> serial = SerialOperand(value);
      return serial && !sections.front().empty() ? FormatSerial(*serial, sections.front(), language)
                                                 : ToText(value);
    }
    case PictureKind::kNumber:
      break;
  }
  if (IsNull(value)) return FormatNullNumber(sections);
  const std::optional<DecimalDigits> number = NumberOperand(value);
  return number ? FormatNumber(*number, sections) : ToText(value);
}

}  // namespace td
