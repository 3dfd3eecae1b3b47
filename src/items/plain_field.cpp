#include "items/plain_field.h"

#include <cstddef>
#include <string_view>

#include "items/text_item.h"
#include "text/characters.h"
#include "text/conversions.h"
#include "text/format_value.h"

namespace td {
namespace {

bool HasPicture(Band& band) {
  const Value& picture = band.Item("FFormatString");
  return !IsNull(picture) && !ToText(picture).empty();
}

// ".5" in a text column prints as "0.5".
std::string PlainText(const Value& value) {
  std::string text = ToText(value);
  if (text.starts_with('.')) text.insert(0, "0");
  return text;
}

std::int16_t CountBehind(std::string_view text, std::size_t dot) {
  return ToInteger16(static_cast<std::int64_t>(CharacterCount(text.substr(dot + 1))));
}

}  // namespace

std::string PriceRulePicture(const Value& value, const std::string& field,
                             const std::string& picture) {
  const std::string text = ToText(value);
  const auto valueDot = text.find('.');
  const auto pictureDot = picture.find('.');
  const bool isPrice = LowerCase(field).find("price") != std::string::npos;
  if (valueDot == std::string::npos || pictureDot == std::string::npos || !isPrice) return picture;

  const std::int16_t ValueDecimals = CountBehind(text, valueDot);
  const std::int16_t FormatDecimals = CountBehind(picture, pictureDot);
  if (ValueDecimals <= FormatDecimals) return picture;
  return picture.substr(0, pictureDot + 1) + RepeatText("0", ValueDecimals);
}

// Formats name columns that the data of many bill types lack, and each row asks for them: the test
// then holds and nothing is drawn, as after a failure, but none is raised for it.
void DrawPlainField(Band& band) {
  const Guard& guard = band.guard;
  Recordset& data = *band.request.PrintData;
  Recordset& clone = *band.request.PrintDataClone;
  const auto isFormatted = [&](Recordset& rows) {
    return guard.Test([&] {
      const Value* value = band.FindData(rows, band.field, true);
      return value == nullptr || (IsNumeric(*value) && HasPicture(band));
    });
  };
  const auto box = [&](Recordset& rows, const auto& textOf) {
    guard.Step([&] {
      const Value* value = band.FindData(rows, band.field, false);
      if (value != nullptr) DrawBox(band, band.caption + textOf(*value));
    });
  };
  const auto picture = [&] { return ToLoneText(band.Item("FFormatString")); };

  if (guard.Test([&] { return data.Eof(); })) {
    if (isFormatted(clone)) {
      box(clone, [&](const Value& value) { return FormatValue(value, picture()); });
    } else {
      box(clone, PlainText);
    }
  } else if (isFormatted(data)) {
    box(data, [&](const Value& value) {
      return FormatValue(value, PriceRulePicture(value, band.field, picture()));
    });
  } else {
    box(band.site == ItemSite::kRow ? data : clone, PlainText);
  }
}

}  // namespace td
