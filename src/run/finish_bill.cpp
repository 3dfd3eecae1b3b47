#include "items/draw_items.h"
#include "platform/checked_counters.h"
#include "run/do_printing.h"
#include "service/print_context.h"
#include "windows/print_window.h"

namespace td {
namespace {

constexpr const char* kOnlyLines = "t2.FTypeID=1";

void FillPage(PrintWindow& window) {
  RunState& state = window.state;
  if (Context().New_OnlyPrintVariantItem) {
    // The sheet has its lines pre-printed: the bands below only move down.
    state.CurrentRowTop += (state.RowsPerPage - state.RowsOnPage) * state.RowHeight;
    return;
  }
  state.CurrentRowTop += state.RowHeight;
  while (state.RowsOnPage < state.RowsPerPage) {
    DrawItems(window, 3, kOnlyLines);
    state.CurrentRowTop += state.RowHeight;
    AddChecked(state.RowsOnPage, 1);
  }
  state.CurrentRowTop -= state.RowHeight;
}

}  // namespace

void FinishBill(PrintWindow& window, bool withFoot) {
  RunState& state = window.state;
  if (state.RowsPerPage > state.RowsOnPage && state.IntegralPage) FillPage(window);
  if (state.Site4Pending) DrawItems(window, 4, "");
  if (withFoot) DrawItems(window, 5, "");
}

}  // namespace td
