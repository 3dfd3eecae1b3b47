#include "items/sum_fields.h"

#include "items/text_item.h"
#include "text/amount_in_words.h"
#include "text/conversions.h"
#include "text/format_value.h"

namespace td {
namespace {

double Shown(Band& band, const double& sum) {
  if (band.witness != nullptr) band.witness->ShowsSum(sum);
  return sum;
}

double ReadSum(Band& band, const SumSource& source) {
  if (const auto* pageSum = std::get_if<double PageSums::*>(&source)) {
    return Shown(band, band.state.page.**pageSum);
  }
  if (const auto* runSum = std::get_if<double RunSums::*>(&source)) {
    return Shown(band, band.state.run.**runSum);
  }
  Recordset& clone = *band.request.PrintDataClone;
  return ToDouble(band.Data(clone, std::get<std::string_view>(source)));
}

// A sum that the window does not keep: a picture and capitals show it as 0, plain text as nothing.
Value SumValue(Band& band, const SumField& sum) {
  const bool hasNoValue =
      !band.window.kind.hasAllSums && sum.withoutAllSums == WithoutAllSums::kNoValue;
  if (hasNoValue) band.Meet(Circumstance::kSumIsNotKept);
  if (sum.form == SumForm::kWords) {
    return AmountInWords(hasNoValue ? 0 : ReadSum(band, sum.source));
  }
  return hasNoValue ? Value() : Value(ReadSum(band, sum.source));
}

// Whether the item has an empty picture. Null is not empty: the picture then fails where it is
// used.
bool HasEmptyPicture(Band& band) {
  return band.guard.Test([&] {
    const Value& picture = band.Item("FFormatString");
    return !IsNull(picture) && ToText(picture).empty();
  });
}

}  // namespace

void DrawSum(Band& band, const SumField& sum) {
  if (HasEmptyPicture(band)) {
    Box(band, [&] { return band.caption + ToText(SumValue(band, sum)); });
  } else {
    Box(band, [&] {
      const Value value = SumValue(band, sum);
      const std::string picture = ToLoneText(band.Item("FFormatString"));
      return band.caption + FormatValue(IsNull(value) ? Value(0.0) : value, picture);
    });
  }
}

}  // namespace td
