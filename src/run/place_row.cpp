#include "run/place_row.h"

#include "items/draw_items.h"
#include "platform/checked_counters.h"
#include "run/row_sums.h"
#include "text/conversions.h"

namespace td {
namespace {

bool CloneStandsOnBill(const PrintRun& run) {
  const Value& parked = run.request.PrintDataClone->Field("FInterID");
  const Value& current = run.request.PrintData->Field("FInterID");
  return !IsNull(parked) && !IsNull(current) && ToText(parked) == ToText(current);
}

}  // namespace

void MoveCloneToBill(PrintRun& run) {
  while (run.guard.Test([&] { return !CloneStandsOnBill(run); })) {
    run.guard.Step([&] { run.request.PrintDataClone->MoveNext(); });
  }
}

void PlaceRow(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  PrintContext& request = run.request;

  state.CurrentRowTop += state.RowHeight;
  state.Site4Pending = true;
  AddRowToSums(run);
  guard.Step([&] { DrawItems(run.window, ItemSite::kRow); });
  guard.Step([&] { AddChecked(state.OrderId, 1); });
  guard.Step([&] { AddChecked(state.RowsOnPage, 1); });
  const bool isPageFull = state.RowsOnPage == state.RowsPerPage;
  if (isPageFull) {
    guard.Step([&] { DrawItems(run.window, ItemSite::kAfterRows); });
    state.Site4Pending = false;
  }
  guard.Step([&] { request.PrintData->MoveNext(); });

  // Asked before the new page is made, so that no empty last page arises.
  if (!isPageFull || guard.Test([&] { return request.PrintData->Eof(); })) return;
  guard.Step([&] { run.vp.NewPage(); });
  state.CurrentRowTop = -state.RowHeight;
  state.RowsOnPage = 0;
}

}  // namespace td
