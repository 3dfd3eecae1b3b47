#include "items/count_fields.h"

#include "items/text_item.h"
#include "text/conversions.h"

namespace td {

void DrawPageOfBill(Band& band) {
  WriteFreeOrBoxed(band, [&] { return band.caption + ToText(band.state.PageOfBill); });
}

void DrawPageOfDocument(Band& band) {
  WriteFreeOrBoxed(band, [&] { return band.caption + ToText(band.vp.PageCount()); });
}

void DrawFreePageOfDocument(Band& band) {
  if (IsAutoSize(band)) {
    Paragraph(band, [&] { return ToText(band.vp.PageCount()); });
  } else {
    band.Meet(Circumstance::kHeadIsOnSheet);
    Box(band, [] { return std::string(); });
  }
}

void DrawOrderId(Band& band) {
  Box(band, [&] { return band.caption + ToText(band.state.OrderId); });
}

}  // namespace td
