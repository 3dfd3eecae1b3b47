#include "run/page_events.h"

#include <cmath>

#include "items/draw_blank_row_header.h"
#include "items/draw_items.h"
#include "items/draw_page_header.h"
#include "platform/checked_counters.h"
#include "text/conversions.h"
#include "windows/print_window.h"

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

void PutStampFont(PrintSurface& vp, const TotalPageStamp& stamp) {
  vp.PutFontName(stamp.StampFontName);
  vp.PutFontSize(stamp.StampFontSize);
  vp.PutFontBold(stamp.StampFontBold);
}

void StampColumnHead(PrintWindow& window, int page, const std::string& text) {
  TotalPageStamp& slot = window.state.stamps[0];
  if (slot.StampFontName.empty()) return;
  PutStampFont(window.vp, slot);
  // The slot itself moves, so the shift adds up from page to page.
  if (page > 1) slot.StampTop += window.state.AdjuctHeader;
  window.vp.TextBox(text, slot.StampLeft, slot.StampTop, slot.StampWidth, slot.StampHeight);
}

// A band behind the rows of a full middle page stands as high as on the first page; on the last
// page, and on all later ones if every page is filled, it stands where the last page drew it.
void StampOtherBand(PrintWindow& window, int page, int pageCount, const std::string& text) {
  const TotalPageStamp& first = window.state.stamps[1];
  const TotalPageStamp& later = window.state.stamps[2];
  if (first.StampFontName.empty()) return;
  PutStampFont(window.vp, first);
  const bool isMiddle = page < pageCount && !window.state.IntegralPage;
  const TotalPageStamp& place = page == 1 ? first : later;
  const double top = page == 1 || isMiddle ? first.StampTop : later.StampTop;
  window.vp.TextBox(text, place.StampLeft, top, place.StampWidth, place.StampHeight);
}

}  // namespace

void OnNewPage(PrintWindow& window) {
  RunState& state = window.state;
  AddChecked(state.PageOfBill, 1);
  AddChecked(state.BillPageCount, 1);
  if (state.BlankRowsAtStart >= 1) {
    DrawBlankRowHeader(window, 1);
  } else if (state.HeaderPerPage) {
    DrawPageHeader(window, 1);
  }
  if (state.IsBodyStarted) {
    if (state.AdjustRowsOnce) GrowRowsPerPage(state);
    state.CurrentRowTop = 0;
    state.BandShift = state.AdjuctHeader;
    DrawItems(window, 2, "");
    state.CurrentRowTop = 0;
  }
  state.page = {};
  state.RowsOnPage = 0;
}

void OnEndPage(PrintWindow& window) {
  const RunState& state = window.state;
  if (state.BlankRowsAtStart < 1 && state.FooterPerPage) DrawItems(window, 5, "");
}

void OnEndDoc(PrintWindow& window) {
  if (!window.state.HasTotalPageStamp) return;
  const std::int16_t pageCount = window.vp.PageCount();
  const std::string text = ToText(pageCount);
  for (int page = 1; page <= pageCount; ++page) {
    window.vp.PutTextAlign(7);
    window.vp.StartOverlay(static_cast<std::int16_t>(page));
    StampColumnHead(window, page, text);
    StampOtherBand(window, page, pageCount, text);
    window.vp.EndOverlay();
  }
}

}  // namespace td
