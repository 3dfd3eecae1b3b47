#include "items/draw_blank_row_header.h"

#include "items/count_fields.h"
#include "items/text_item.h"
#include "items/total_page_stamp.h"
#include "text/conversions.h"

namespace td {
namespace {

// The label is on the sheet already: an empty text is written in its place.
void DrawConstant(Band& band) {
  if (IsAutoSize(band)) {
    band.guard.Step([&] { band.vp.PutText(""); });
  } else {
    Box(band, [] { return std::string(); });
  }
}

// The first page's head is on the sheet already: only later pages show values.
void DrawDataField(Band& band) {
  Recordset& data = *band.request.PrintData;
  const bool isFirstPage = band.guard.Test([&] { return band.vp.PageCount() == 1; });
  const auto text = [&] {
    return isFirstPage ? std::string() : ToLoneText(data.Field(band.field));
  };
  if (IsAutoSize(band)) {
    band.guard.Step([&] { band.vp.PutParagraph(text()); });
  } else if (band.guard.Test([&] { return !IsNull(data.Field(band.field)); })) {
    Box(band, text);
  }
}

// `field` is held across the items: a variable without a field goes by the one before it.
void DrawTextItem(Band& band) {
  const Guard& guard = band.guard;
  PlaceTextItem(band);
  if (guard.Test([&] { return !IsSet(band.Item("FIsVariant")); })) {
    DrawConstant(band);
    return;
  }
  guard.Step([&] { band.field = ToLoneText(band.Item("FFieldName")); });
  if (LowerCase(band.field) == kPageNumberField) {
    DrawFreePageOfDocument(band);
  } else if (LowerCase(band.field) == kTotalPageNumberField) {
    StoreTotalPageStamp(band);
  } else {
    DrawDataField(band);
  }
}

}  // namespace

void DrawBlankRowHeader(PrintWindow& window) {
  DrawHeadBand(window, DrawTextItem);
}

}  // namespace td
