#include "run/finish_bill.h"

#include <string>

#include "items/draw_items.h"
#include "platform/checked_counters.h"
#include "store/statements.h"

namespace td {
namespace {

void FillPage(PrintWindow& window) {
  RunState& state = window.state;
  if (window.request.New_OnlyPrintVariantItem) {
    // The sheet has its lines pre-printed: the bands below only move down.
    state.CurrentRowTop += (state.RowsPerPage - state.RowsOnPage) * state.RowHeight;
    return;
  }
  state.CurrentRowTop += state.RowHeight;
  while (state.RowsOnPage < state.RowsPerPage) {
    DrawItems(window, ItemSite::kRow, kOnlyLines);
    state.CurrentRowTop += state.RowHeight;
    AddChecked(state.RowsOnPage, 1);
  }
  state.CurrentRowTop -= state.RowHeight;
}

}  // namespace

void FinishBill(PrintWindow& window, bool withFoot) {
  RunState& state = window.state;
  if (state.RowsPerPage > state.RowsOnPage && state.IntegralPage) FillPage(window);
  if (state.Site4Pending) DrawItems(window, ItemSite::kAfterRows);
  if (withFoot) DrawItems(window, ItemSite::kFoot);
}

void FinishLastGroup(PrintRun& run) {
  const bool isByBill = run.kind.grouping == Grouping::kBill;
  // A blank-row run ends on a form that is printed already: no filler rows, no band 4, no foot.
  if (isByBill && run.state.BlankRowsAtStart != 0) return;
  const bool withFoot = !isByBill || !run.state.FooterPerPage;
  run.guard.Step([&] { FinishBill(run.window, withFoot); });
}

void RecordBillPages(PrintRun& run) {
  auto& pages = run.state.BillPages;
  run.guard.Step([&] {
    for (auto page = pages.size() + 1; page <= static_cast<std::size_t>(run.vp.PageCount());
         ++page) {
      pages.emplace(std::to_string(page) + "page", run.state.BillPageCount);
    }
  });
}

}  // namespace td
