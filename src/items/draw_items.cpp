#include "items/draw_items.h"

#include "items/band.h"
#include "items/image_items.h"
#include "items/named_fields.h"
#include "items/plain_field.h"
#include "store/statements.h"

namespace td {
namespace {

void DrawTextItem(Band& band) {
  PlaceTextItem(band);
  ReadCaption(band);
  ReadField(band);

  if (HasToken(band, kBillNoBarcode)) {
    DrawBarcode(band, "FBillNo");
  } else if (HasToken(band, kRandomBarcode)) {
    DrawBarcode(band, "FBillNoBarCode");
  } else if (HasToken(band, kGoodsPicture)) {
    DrawGoodsPicture(band);
  } else if (band.field.empty()) {
    Box(band, [&] { return band.caption; });
  } else if (const NamedField* named = FindNamedField(band.field, band.window.kind)) {
    named->draw(band, *named);
  } else {
    DrawPlainField(band);
  }
}

}  // namespace

void DrawItems(PrintWindow& window, std::int16_t FSite, std::string_view Filter) {
  DrawBand(window, ItemStatement(Context(), FSite, Filter), FSite, true, DrawTextItem);
}

}  // namespace td
