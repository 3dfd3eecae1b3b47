#include "items/draw_blank_row_header.h"

#include "items/header_band.h"
#include "items/named_fields.h"
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

// The number prints only where the item stands free; a box stays empty.
void DrawFreePageOfDocument(Band& band) {
  if (IsAutoSize(band)) {
    band.guard.Step([&] { band.vp.PutParagraph(ToText(band.vp.PageCount())); });
  } else {
    Box(band, [] { return std::string(); });
  }
}

// The first page's head is on the sheet already: only later pages show values.
void DrawDataField(Band& band) {
  Recordset& data = *Context().PrintData;
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
  const auto isConstant = [&] {
    const Value& isVariant = band.Item("FIsVariant");
    return IsNull(isVariant) || !ToFlag(isVariant);
  };
  if (guard.Test(isConstant)) {
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

void DrawBlankRowHeader(PrintWindow& window, std::int16_t site) {
  DrawHeaderBand(window, site, DrawTextItem);
}

}  // namespace td
