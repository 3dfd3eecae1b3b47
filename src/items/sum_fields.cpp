// The page number, the total-page place, and the sums as numbers or in Chinese capitals.
#include "items/named_fields.h"
#include "text/amount_in_words.h"
#include "text/conversions.h"
#include "text/format_value.h"

namespace td {
namespace {

double ReadSum(Band& band, const NamedField& field) {
  const SumSource& source = std::get<SumSource>(field.source);
  if (const auto* pageSum = std::get_if<double PageSums::*>(&source))
    return band.state.page.**pageSum;
  if (const auto* runSum = std::get_if<double RunSums::*>(&source)) return band.state.run.**runSum;
  return ToDouble(Context().PrintDataClone->Field(std::get<std::string_view>(source)));
}

// A sum that the window does not keep: a picture and capitals show it as 0, plain text as nothing.
bool HasNoValue(const Band& band, const NamedField& field) {
  return !band.window.kind.hasAllSums && field.withoutAllSums == WithoutAllSums::kNoValue;
}

// Whether the item has an empty picture. Null is not empty: the picture then fails where it is
// used.
bool HasEmptyPicture(Band& band) {
  return band.guard.Test([&] {
    const Value& picture = band.Item("FFormatString");
    return !IsNull(picture) && ToText(picture).empty();
  });
}

void DrawValue(Band& band, const std::function<Value()>& readValue) {
  if (HasEmptyPicture(band)) {
    Box(band, [&] { return band.caption + ToText(readValue()); });
  } else {
    Box(band, [&] {
      const Value value = readValue();
      const std::string picture = ToLoneText(band.Item("FFormatString"));
      return band.caption + FormatValue(IsNull(value) ? Value(0.0) : value, picture);
    });
  }
}

}  // namespace

void DrawPageOfBill(Band& band, const NamedField& /*field*/) {
  WriteFreeOrBoxed(band, [&] { return band.caption + ToText(band.state.PageOfBill); });
}

void DrawTotalPageNumber(Band& band, const NamedField& /*field*/) {
  StoreTotalPageStamp(band);
}

void DrawSum(Band& band, const NamedField& field) {
  DrawValue(band, [&] { return HasNoValue(band, field) ? Value() : Value(ReadSum(band, field)); });
}

void DrawSumInWords(Band& band, const NamedField& field) {
  DrawValue(band, [&] {
    const double amount = HasNoValue(band, field) ? 0 : ReadSum(band, field);
    return Value(AmountInWords(amount));
  });
}

}  // namespace td
