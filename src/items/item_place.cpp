#include "items/item_place.h"

#include "text/conversions.h"

namespace td {

double ItemLeft(Band& band) {
  return ToDouble(band.Item("FLeft")) + band.state.AdjuctLeft;
}

double FixedItemTop(Band& band) {
  return ToDouble(band.Item("FTop")) + band.state.AdjuctTop;
}

double ItemTop(Band& band) {
  const double top = FixedItemTop(band);
  return band.RidesOnRows() ? top + band.state.CurrentRowTop + band.state.BandShift : top;
}

// The head adds the offset last, the bands that ride on the rows add the size to the finished
// place: with fractions of a twip the order decides the last digit.
double LineRight(Band& band) {
  const double width = ToDouble(band.Item("FWidth"));
  if (band.RidesOnRows()) return width + ItemLeft(band);
  return width + ToDouble(band.Item("FLeft")) + band.state.AdjuctLeft;
}

double LineBottom(Band& band) {
  const double height = ToDouble(band.Item("FHeight"));
  if (band.RidesOnRows()) return ItemTop(band) + height;
  return ToDouble(band.Item("FTop")) + height + band.state.AdjuctTop;
}

}  // namespace td
