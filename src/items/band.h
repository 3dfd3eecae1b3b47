// One band being drawn, and the steps that all item routines share.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "store/error_policy.h"
#include "store/query.h"
#include "windows/print_window.h"

namespace td {

// The items are read by column name at each use and never copied. `typeId`, `caption`, `field` and
// `ComposedQty` are held across the items of the band: a skipped step leaves them as they were.
struct Band {
  PrintWindow& window;
  const Guard& guard;
  std::int16_t site = 0;
  bool ridesOnRows = false;  // items stand at the row offsets; head items do not
  Query items{};
  Value typeId{};
  std::string caption{};
  std::string field{};
  std::string ComposedQty{};

  PrintSurface& vp = window.vp;
  RunState& state = window.state;

  [[nodiscard]] const Value& Item(std::string_view column) { return items.Field(column); }
};

// Opens `sql`, draws its items (texts by `drawText`, lines and pictures alike in all bands), closes
// it and then runs `finish` as a statement of its own. Runs under the error policy.
void DrawBand(PrintWindow& window, const std::string& sql, std::int16_t site, bool ridesOnRows,
              void (*drawText)(Band&), const std::function<void()>& finish = {});

// Where the item stands, in twips. Fail on Null and on text that is no number.
[[nodiscard]] double ItemLeft(Band& band);
[[nodiscard]] double ItemTop(Band& band);       // with the row offsets if the band rides on rows
[[nodiscard]] double FixedItemTop(Band& band);  // without them

// Current point, font and alignment of a text item.
void PlaceTextItem(Band& band);

// `caption` and `field` of the item. In the plain window a label that merely repeats the item's
// name becomes empty.
void ReadCaption(Band& band);
void ReadField(Band& band);

// Whether the item asks for an image: its FObjectFieldName is `token`, exactly.
[[nodiscard]] bool HasToken(Band& band, std::string_view token);

// Whether FAutoSize is set; Null counts as not.
[[nodiscard]] bool IsAutoSize(Band& band);

// One text box at the item's place; `makeText` and the place are one statement.
void Box(Band& band, const std::function<std::string()>& makeText);

// One text where the item wants it: a paragraph at the current point if it has FAutoSize, else in
// its box.
void WriteFreeOrBoxed(Band& band, const std::function<std::string()>& makeText);

// Keeps the place of a total-page item for the end of the document; nothing is drawn.
void StoreTotalPageStamp(Band& band);

}  // namespace td
