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
std::string ComposedText(Band& band, const QuantityColumns& columns) {
  Recordset& data = *band.request.PrintData;
  const Value main = band.Data(data, columns.main);
  const Value mainUnit = band.Data(data, columns.mainUnit);
  const Value small = band.Data(data, columns.small);
  const Value smallUnit = band.Data(data, columns.smallUnit);
  std::string text = AbsoluteText(main) + ToText(mainUnit);
  if (IsNeitherZeroNorNull(small)) text += "+" + AbsoluteText(small) + ToText(smallUnit);
  return text;
}

}  // namespace

void DrawQuantity(Band& band, const QuantityColumns& columns) {
  const Guard& guard = band.guard;
  Recordset& data = *band.request.PrintData;
  if (!columns.testedForNull.empty() &&
      guard.Test([&] { return IsNull(band.Data(data, columns.testedForNull)); })) {
    band.Meet(Circumstance::kNullDirection);
    return;
  }
  if (guard.Test([&] { return IsNeitherZeroNorNull(band.Data(data, columns.testedForZero)); })) {
    guard.Step([&] { band.ComposedQty = ComposedText(band, columns); });
  } else if (band.state.MustShowComplexQty) {
    guard.Step([&] {
      band.ComposedQty =
          ToText(band.Data(data, columns.fallback)) + ToText(band.Data(data, columns.smallUnit));
    });
  } else {
    band.Meet(Circumstance::kQuantityNotComposed);
  }
  Box(band, [&] { return band.caption + band.ComposedQty; });
}

}  // namespace td
