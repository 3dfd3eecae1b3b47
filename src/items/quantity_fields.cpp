#include "items/quantity_fields.h"

#include <cmath>

#include "items/text_item.h"
#include "text/conversions.h"

namespace td {
namespace {

// Text that is no number is not zero; it fails where its absolute value is taken.
bool IsNeitherZeroNorNull(const Value& value) {
  return !IsNull(value) && (!IsNumeric(value) || ToDouble(value) != 0);
}

std::string AbsoluteText(const Value& value) {
  return ToText(std::abs(ToDouble(value)));
}

// All four columns are read first: a missing one fails the text as a whole.
std::string ComposedText(Recordset& data, const QuantityColumns& columns) {
  const Value main = data.Field(columns.main);
  const Value mainUnit = data.Field(columns.mainUnit);
  const Value small = data.Field(columns.small);
  const Value smallUnit = data.Field(columns.smallUnit);
  std::string text = AbsoluteText(main) + ToText(mainUnit);
  if (IsNeitherZeroNorNull(small)) text += "+" + AbsoluteText(small) + ToText(smallUnit);
  return text;
}

}  // namespace

void DrawQuantity(Band& band, const QuantityColumns& columns) {
  const Guard& guard = band.guard;
  Recordset& data = *band.request.PrintData;
  if (!columns.testedForNull.empty() &&
      guard.Test([&] { return IsNull(data.Field(columns.testedForNull)); })) {
    return;
  }
  if (guard.Test([&] { return IsNeitherZeroNorNull(data.Field(columns.testedForZero)); })) {
    guard.Step([&] { band.ComposedQty = ComposedText(data, columns); });
  } else if (band.state.MustShowComplexQty) {
    guard.Step([&] {
      band.ComposedQty =
          ToText(data.Field(columns.fallback)) + ToText(data.Field(columns.smallUnit));
    });
  }
  Box(band, [&] { return band.caption + band.ComposedQty; });
}

}  // namespace td
