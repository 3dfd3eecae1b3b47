// The row number and the quantities in two units.
#include <cmath>

#include "items/named_fields.h"
#include "text/conversions.h"

namespace td {
namespace {

const Value& Data(std::string_view column) {
  return Context().PrintData->Field(column);
}

// Text that is no number is not zero; it fails where its absolute value is taken.
bool IsNeitherZeroNorNull(const Value& value) {
  return !IsNull(value) && (!IsNumeric(value) || ToDouble(value) != 0);
}

std::string AbsoluteText(const Value& value) {
  return ToText(std::abs(ToDouble(value)));
}

// "3箱+5瓶". All four columns are read first: a missing one fails the text as a whole.
std::string ComposedText(const QuantityColumns& columns) {
  const Value main = Data(columns.main);
  const Value mainUnit = Data(columns.mainUnit);
  const Value small = Data(columns.small);
  const Value smallUnit = Data(columns.smallUnit);
  std::string text = AbsoluteText(main) + ToText(mainUnit);
  if (IsNeitherZeroNorNull(small)) text += "+" + AbsoluteText(small) + ToText(smallUnit);
  return text;
}

}  // namespace

void DrawOrderId(Band& band, const NamedField& /*field*/) {
  Box(band, [&] { return band.caption + ToText(band.state.OrderId); });
}

void DrawQuantity(Band& band, const NamedField& field) {
  const Guard& guard = band.guard;
  const auto& columns = std::get<QuantityColumns>(field.source);
  if (!columns.testedForNull.empty() &&
      guard.Test([&] { return IsNull(Data(columns.testedForNull)); })) {
    return;
  }
  if (guard.Test([&] { return IsNeitherZeroNorNull(Data(columns.testedForZero)); })) {
    guard.Step([&] { band.ComposedQty = ComposedText(columns); });
  } else if (band.state.MustShowComplexQty) {
    guard.Step([&] {
      band.ComposedQty = ToText(Data(columns.fallback)) + ToText(Data(columns.smallUnit));
    });
  }
  Box(band, [&] { return band.caption + band.ComposedQty; });
}

}  // namespace td
