// One band being drawn: the items of a format that stand in it, one after the other.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "policy/error_policy.h"
#include "state/print_window.h"
#include "store/query.h"
#include "store/template_item.h"

namespace td {

// The items are read by column name at each use and never copied. `typeId`, `caption`, `field` and
// `ComposedQty` are held across the items of the band: a skipped step leaves them as they were.
struct Band {
  PrintWindow& window;
  const Guard& guard;
  ItemSite site = ItemSite::kHead;
  Query items{window.platform.database, window.request};
  Value typeId{};
  std::string caption{};
  std::string field{};
  std::string ComposedQty{};

  PrintSurface& vp = window.vp;
  PrintContext& request = window.request;
  RunState& state = window.state;

  [[nodiscard]] const Value& Item(std::string_view column) { return items.Field(column); }

  // Items stand at the row offsets; head items do not.
  [[nodiscard]] bool RidesOnRows() const { return site != ItemSite::kHead; }
};

// Opens `sql`, draws its items (texts by `drawText`, lines and pictures alike in all bands), closes
// it and then runs `finish` as a statement of its own. Runs under the error policy.
void DrawBand(PrintWindow& window, const std::string& sql, ItemSite site, void (*drawText)(Band&),
              const std::function<void()>& finish = {});

// The same for the head: at fixed places, hidden positions included. Records where the head ended.
void DrawHeadBand(PrintWindow& window, void (*drawText)(Band&));

}  // namespace td
