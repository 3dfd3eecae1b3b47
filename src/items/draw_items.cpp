#include "items/draw_items.h"

#include "items/image_items.h"
#include "items/named_fields.h"
#include "items/plain_field.h"
#include "items/text_item.h"
#include "store/statements.h"

namespace td {
namespace {

void DrawTextItem(Band& band) {
  PlaceTextItem(band);
  ReadCaption(band);
  ReadField(band);

  if (DrawImage(band)) return;
  if (band.field.empty()) {
    band.Meet(Circumstance::kNoVariable);
    Box(band, [&] { return band.caption; });
  } else if (const NamedField* named = FindNamedField(band.field, band.window.kind)) {
    DrawNamedField(band, *named);
  } else {
    DrawPlainField(band);
  }
}

}  // namespace

void DrawItems(PrintWindow& window, ItemSite FSite, std::string_view Filter) {
  DrawBand(window, ItemStatement(window.request, FSite, Filter),
           {.site = FSite, .isFiller = !Filter.empty(), .drawText = DrawTextItem});
}

}  // namespace td
