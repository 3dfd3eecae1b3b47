#include "items/total_page_stamp.h"

#include "items/item_place.h"
#include "text/conversions.h"

namespace td {
namespace {

StampSlot SlotOf(Band& band) {
  if (band.site == ItemSite::kColumnHead) return StampSlot::kColumnHead;
  return band.vp.PageCount() == 1 ? StampSlot::kFirstPage : StampSlot::kLaterPage;
}

// The head itself does not ride on the rows, but its stamp does: it takes the offsets as they
// stand.
double StampTopOf(Band& band, StampSlot slot) {
  const double top = FixedItemTop(band);
  if (slot == StampSlot::kColumnHead) return top;
  return top + band.state.CurrentRowTop + band.state.BandShift;
}

void PutStampFont(PrintSurface& vp, const TotalPageStamp& stamp) {
  vp.PutFontName(stamp.StampFontName);
  vp.PutFontSize(stamp.StampFontSize);
  vp.PutFontBold(stamp.StampFontBold);
}

void WriteStamp(PrintWindow& window, const TotalPageStamp& place, double top, int page,
                const std::string& text) {
  window.vp.TextBox(text, place.StampLeft, top, place.StampWidth, place.StampHeight);
  RunWitness* const witness = window.platform.witness;
  if (witness == nullptr) return;
  const auto slot = static_cast<std::size_t>(&place - window.state.stamps.data());
  witness->StampWritten(slot, page);
}

void StampColumnHead(PrintWindow& window, int page, const std::string& text) {
  TotalPageStamp& slot = window.state.Stamp(StampSlot::kColumnHead);
  if (slot.StampFontName.empty()) return;
  PutStampFont(window.vp, slot);
  // The slot itself moves, so the shift adds up from page to page.
  if (page > 1) slot.StampTop += window.state.AdjuctHeader;
  WriteStamp(window, slot, slot.StampTop, page, text);
}

// A band behind the rows of a full middle page stands as high as on the first page; on the last
// page, and on all later ones if every page is filled, it stands where the last page drew it.
void StampOtherBand(PrintWindow& window, int page, int pageCount, const std::string& text) {
  const TotalPageStamp& first = window.state.Stamp(StampSlot::kFirstPage);
  const TotalPageStamp& later = window.state.Stamp(StampSlot::kLaterPage);
  if (first.StampFontName.empty()) return;
  PutStampFont(window.vp, first);
  const bool isMiddle = page < pageCount && !window.state.IntegralPage;
  const TotalPageStamp& place = page == 1 ? first : later;
  const double top = page == 1 || isMiddle ? first.StampTop : later.StampTop;
  WriteStamp(window, place, top, page, text);
}

}  // namespace

void StoreTotalPageStamp(Band& band) {
  const Guard& guard = band.guard;
  RunState& state = band.state;
  state.StampCount += 1;
  state.HasTotalPageStamp = true;
  StampSlot slot = StampSlot::kColumnHead;
  guard.Step([&] { slot = SlotOf(band); });
  TotalPageStamp& stamp = state.Stamp(slot);
  guard.Step([&] { stamp.StampTop = StampTopOf(band, slot); });
  guard.Step([&] { stamp.StampLeft = ItemLeft(band); });
  guard.Step([&] { stamp.StampWidth = ToDouble(band.Item("FWidth")); });
  guard.Step([&] { stamp.StampHeight = ToDouble(band.Item("FHeight")); });
  guard.Step([&] { stamp.StampFontName = ToLoneText(band.Item("FFontName")); });
  guard.Step([&] { stamp.StampFontSize = ToInteger16(band.Item("FFontSize")); });
  guard.Step([&] { stamp.StampFontBold = ToFlag(band.Item("FFontBold")); });
  if (band.witness != nullptr) band.witness->StampKept(static_cast<std::size_t>(slot));
}

void StampTotalPages(PrintWindow& window) {
  if (!window.state.HasTotalPageStamp) return;
  const std::int16_t pageCount = window.vp.PageCount();
  const std::string text = ToText(pageCount);
  for (int page = 1; page <= pageCount; ++page) {
    window.vp.PutTextAlign(kAlignCentre);
    window.vp.StartOverlay(static_cast<std::int16_t>(page));
    StampColumnHead(window, page, text);
    StampOtherBand(window, page, pageCount, text);
    window.vp.EndOverlay();
  }
}

}  // namespace td
