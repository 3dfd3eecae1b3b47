// What the rows of both runs have in common.
#include "items/draw_items.h"
#include "platform/checked_counters.h"
#include "run/print_run.h"
#include "text/conversions.h"

namespace td {
namespace {

bool CloneStandsOnBill(const PrintRun& run) {
  const Value& parked = run.context.PrintDataClone->Field("FInterID");
  const Value& current = run.context.PrintData->Field("FInterID");
  return !IsNull(parked) && !IsNull(current) && ToText(parked) == ToText(current);
}

}  // namespace

void MoveCloneToBill(PrintRun& run) {
  while (run.guard.Test([&] { return !CloneStandsOnBill(run); })) {
    run.guard.Step([&] { run.context.PrintDataClone->MoveNext(); });
  }
}

void PlaceRow(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  PrintContext& context = run.context;

  state.CurrentRowTop += state.RowHeight;
  state.Site4Pending = true;
  run.kind.addRowToSums(run);
  guard.Step([&] { DrawItems(run.window, 3, ""); });
  guard.Step([&] { AddChecked(state.OrderId, 1); });
  guard.Step([&] { AddChecked(state.RowsOnPage, 1); });
  const bool isPageFull = state.RowsOnPage == state.RowsPerPage;
  if (isPageFull) {
    guard.Step([&] { DrawItems(run.window, 4, ""); });
    state.Site4Pending = false;
  }
  guard.Step([&] { context.PrintData->MoveNext(); });

  // Asked before the new page is made, so that no empty last page arises.
  if (!isPageFull || guard.Test([&] { return context.PrintData->Eof(); })) return;
  guard.Step([&] { run.vp.NewPage(); });
  state.CurrentRowTop = -state.RowHeight;
  state.RowsOnPage = 0;
}

}  // namespace td
