#include "items/draw_page_header.h"

#include <functional>
#include <string>

#include "items/count_fields.h"
#include "items/image_items.h"
#include "items/text_item.h"
#include "items/total_page_stamp.h"
#include "text/conversions.h"

namespace td {
namespace {

// The head of a page.

// A boxed value that is Null leaves its place as it is: not even the caption is printed.
void BoxUnlessNull(Band& band, const std::function<std::string()>& text) {
  Recordset& data = *band.request.PrintData;
  if (band.guard.Test([&] { return !IsNull(band.Data(data, band.field)); })) {
    Box(band, text);
  } else {
    band.Meet(Circumstance::kNullInBox);
  }
}

// The caption of a free-standing item is printed also where its value is Null.
void DrawDataField(Band& band) {
  Recordset& data = *band.request.PrintData;
  const auto text = [&] { return band.caption + ToText(band.Data(data, band.field)); };
  if (IsAutoSize(band)) {
    Paragraph(band, text);
  } else {
    BoxUnlessNull(band, text);
  }
}

// A constant prints its caption as stored, also where it repeats the item's name.
void DrawConstant(Band& band) {
  const auto text = [&] { return ToLoneText(band.Item("FObjectCaption")); };
  band.Meet(Circumstance::kNoVariable);
  if (IsAutoSize(band)) {
    RunningText(band, text);
  } else {
    Box(band, text);
  }
}

void DrawTextItem(Band& band) {
  PlaceTextItem(band);
  ReadField(band);
  ReadCaption(band);

  if (DrawImage(band)) return;
  if (LowerCase(band.field) == kPageNumberField) {
    DrawPageOfDocument(band);
  } else if (LowerCase(band.field) == kTotalPageNumberField) {
    StoreTotalPageStamp(band);
  } else if (!band.field.empty()) {
    DrawDataField(band);
  } else {
    DrawConstant(band);
  }
}

// The head of a run that starts part-way down the form.

// The label is on the sheet already: an empty text is written in its place.
void DrawSilentConstant(Band& band) {
  band.Meet(Circumstance::kHeadIsOnSheet);
  if (IsAutoSize(band)) {
    RunningText(band, [] { return std::string(); });
  } else {
    Box(band, [] { return std::string(); });
  }
}

// The first page's head is on the sheet already: only later pages show values.
void DrawLaterDataField(Band& band) {
  Recordset& data = *band.request.PrintData;
  const bool isFirstPage = band.guard.Test([&] { return band.vp.PageCount() == 1; });
  const auto text = [&] {
    return isFirstPage ? std::string() : ToLoneText(band.Data(data, band.field));
  };
  if (isFirstPage) band.Meet(Circumstance::kHeadIsOnSheet);
  if (IsAutoSize(band)) {
    Paragraph(band, text);
  } else {
    BoxUnlessNull(band, text);
  }
}

// `field` is held across the items: a variable without a field goes by the one before it.
void DrawBlankRowTextItem(Band& band) {
  const Guard& guard = band.guard;
  PlaceTextItem(band);
  if (guard.Test([&] { return !IsSet(band.Item("FIsVariant")); })) {
    DrawSilentConstant(band);
    return;
  }
  guard.Step([&] { band.field = ToLoneText(band.Item("FFieldName")); });
  if (LowerCase(band.field) == kPageNumberField) {
    DrawFreePageOfDocument(band);
  } else if (LowerCase(band.field) == kTotalPageNumberField) {
    StoreTotalPageStamp(band);
  } else {
    DrawLaterDataField(band);
  }
}

}  // namespace

void DrawPageHeader(PrintWindow& window) {
  DrawHeadBand(window, DrawTextItem);
}

void DrawBlankRowHeader(PrintWindow& window) {
  DrawHeadBand(window, DrawBlankRowTextItem);
}

}  // namespace td
