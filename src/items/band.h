// One band being drawn: the items of a format that stand in it, one after the other.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/run_witness.h"
#include "platform/standard_failures.h"
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
  Query items{window.platform, window.request};
  Value typeId{};
  std::string caption{};
  std::string field{};
  std::string ComposedQty{};

  PrintSurface& vp = window.vp;
  PrintContext& request = window.request;
  RunState& state = window.state;
  RunWitness* witness = window.platform.witness;

  [[nodiscard]] const Value& Item(std::string_view column) { return items.Field(column); }

  // A column of the print data, or of its parked clone.
  [[nodiscard]] const Value& Data(Recordset& rows, std::string_view column) const {
    return ReadColumn(witness, rows, column);
  }

  // The same for a column that many data lack: nothing then, which is forgiven as a failure would
  // be, but none is raised.
  [[nodiscard]] const Value* FindData(Recordset& rows, std::string_view column, bool isTest) const {
    if (witness != nullptr) witness->Reads(rows, column);
    const Value* value = rows.Find(column);
    if (value == nullptr && witness != nullptr) {
      witness->Forgives(NoSuchColumnFailure(column), isTest);
    }
    return value;
  }

  // For the witness: what the item has become.
  void Drew(DrawnAs what, std::string_view text = {}) const {
    if (witness != nullptr) witness->Drawn(what, text);
  }
  void Meet(Circumstance circumstance) const {
    if (witness != nullptr) witness->Meets(circumstance);
  }

  // Items stand at the row offsets; head items do not.
  [[nodiscard]] bool RidesOnRows() const { return site != ItemSite::kHead; }
};

// How a band is drawn.
struct BandDrawing {
  ItemSite site = ItemSite::kHead;
  bool isFiller = false;              // a row without data
  void (*drawText)(Band&) = nullptr;  // lines and pictures are alike in all bands
  std::function<void()> finish = {};  // a statement of its own, behind the items
};

// Opens `sql`, draws its items and closes it. Runs under the error policy.
void DrawBand(PrintWindow& window, const std::string& sql, const BandDrawing& drawing);

// The same for the head: at fixed places, hidden positions included. Records where the head ended.
void DrawHeadBand(PrintWindow& window, void (*drawText)(Band&));

}  // namespace td
