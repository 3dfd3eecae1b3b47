#include "run/page_events.h"

#include <cmath>

#include "items/draw_items.h"
#include "items/draw_page_header.h"
#include "items/total_page_stamp.h"
#include "platform/checked_counters.h"
#include "platform/run_witness.h"
#include "state/print_window.h"
#include "text/conversions.h"

namespace td {
namespace {

// Later pages may lack the head of the first one: the rows gained by the shift are used, once in a
// run. A shift downwards adds rows, too.
void GrowRowsPerPage(RunState& state) {
  if (state.RowHeight == 0) throw DivisionByZeroFailure();
  const double grown =
      state.RowsPerPage + std::trunc(std::abs(state.AdjuctHeader) / state.RowHeight);
  state.RowsPerPage = ToInteger32(grown);
  state.AdjustRowsOnce = false;
}

}  // namespace

void OnNewPage(PrintWindow& window) {
  RunState& state = window.state;
  RunWitness* const witness = window.platform.witness;
  if (witness != nullptr) witness->PageBegins();
  AddChecked(state.PageOfBill, 1);
  AddChecked(state.BillPageCount, 1);
  if (state.BlankRowsAtStart >= 1) {
    DrawBlankRowHeader(window);
  } else if (state.HeaderPerPage) {
    DrawPageHeader(window);
  }
  if (state.IsBodyStarted) {
    if (state.AdjustRowsOnce) GrowRowsPerPage(state);
    state.CurrentRowTop = 0;
    state.BandShift = state.AdjuctHeader;
    DrawItems(window, ItemSite::kColumnHead);
    state.CurrentRowTop = 0;
  }
  state.page = {};
  state.RowsOnPage = 0;
}

void OnEndPage(PrintWindow& window) {
  const RunState& state = window.state;
  if (state.BlankRowsAtStart < 1 && state.FooterPerPage) DrawItems(window, ItemSite::kFoot);
}

void OnEndDoc(PrintWindow& window) {
  RunWitness* const witness = window.platform.witness;
  if (witness != nullptr) witness->PagesEnd();
  StampTotalPages(window);
}

}  // namespace td
