#include "designer/sheet/band_tool.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "designer/model/item_choices.h"

namespace td::designer {
namespace {

constexpr double kBarWidth = 8;  // pixels
constexpr double kHandleHeight = 8;
constexpr double kStep = kTwipsPerMillimetre / 10;
constexpr int kMostRows = 1000;

std::optional<BandStrip> RowStrip(SheetView& view) {
  for (const BandStrip& strip : StripsOf(view)) {
    if (strip.site == ItemSite::kRow) return strip;
  }
  return std::nullopt;
}

}  // namespace

std::vector<BandStrip> StripsOf(SheetView& view) {
  const SheetLayout& layout = view.Layout();
  std::map<ItemSite, Box> boxes;
  for (const Item& item : view.TheFormat().items) {
    const auto box = view.BoxOf(item.id);
    if (!box || item.Site() == ItemSite::kRow) continue;
    const auto [found, isFirst] = boxes.try_emplace(item.Site(), *box);
    if (!isFirst) found->second = Around(found->second, *box);
  }
  const auto tops = RowTops(layout, view.TheFormat());
  // An empty sheet has no rows yet: they would lie where its head is to come.
  if (!tops.empty() && layout.rowHeight > 0 && !view.TheFormat().items.Empty()) {
    const bool showsData = view.Options().contents == SheetContents::kData;
    const int rows = showsData ? view.Page().rows : layout.rowsPerPage;
    if (rows > 0) {
      boxes[ItemSite::kRow] = {0, tops.front() + view.PageShift(), layout.width,
                               rows * layout.rowHeight};
    }
  }
  std::vector<BandStrip> strips;
  strips.reserve(boxes.size());
  for (const auto& [site, box] : boxes) strips.push_back({site, box});
  return strips;
}

QRectF BarOf(const SheetView& view, const BandStrip& strip) {
  const QRectF seen = view.ToView(strip.box);
  return {view.SheetRect().left() - kBarWidth - 3, seen.top(), kBarWidth, seen.height()};
}

std::vector<RowHandle> RowHandlesOf(SheetView& view) {
  const auto strip = RowStrip(view);
  if (!strip || view.Options().contents == SheetContents::kData) return {};
  const QRectF bar = BarOf(view, *strip);
  const double height = view.Layout().rowHeight * view.PixelsPerTwip();
  const auto handleAt = [&bar](double y) {
    return QRectF(bar.left() - 3, y - kHandleHeight / 2, bar.width() + 6, kHandleHeight);
  };
  // With few rows both lie upon each other; that of the number is the outer one.
  const bool isOne = view.Layout().rowsPerPage <= 1;
  const double last = bar.bottom() + (isOne ? kHandleHeight : 0);
  return {{handleAt(bar.top() + height), true}, {handleAt(last), false}};
}

bool BandTool::Press(const SheetMouse& mouse) {
  if (mouse.button != Qt::LeftButton) return false;
  for (const RowHandle& handle : RowHandlesOf(view_)) {
    if (!handle.box.contains(mouse.at)) continue;
    dragged_ = handle;
    top_ = RowStrip(view_)->box.top;
    formerHeight_ = view_.Layout().rowHeight;
    formerRows_ = view_.Layout().rowsPerPage;
    gesture_ = view_.TheWorkspace().document.NewGesture();
    return true;
  }
  return false;
}

void BandTool::Drag(const SheetMouse& mouse) {
  if (!dragged_) return;
  FormatDocument& document = view_.TheWorkspace().document;
  const double below = mouse.sheet.y - top_;
  if (dragged_->isHeight) {
    const double height = std::max(std::round(below / kStep), 1.0) * kStep;
    document.SetFormatNumber("FRowHeight", StoredTwips(height), gesture_);
  } else {
    const double rows = std::clamp(std::round(below / formerHeight_), 1.0, 1.0 * kMostRows);
    document.SetFormatNumber("FRowsPerPage", rows, gesture_);
  }
}

void BandTool::Release(const SheetMouse& /*mouse*/) {
  dragged_.reset();
}

void BandTool::Cancel() {
  if (!dragged_) return;
  FormatDocument& document = view_.TheWorkspace().document;
  if (dragged_->isHeight) {
    document.SetFormatNumber("FRowHeight", formerHeight_, gesture_);
  } else {
    document.SetFormatNumber("FRowsPerPage", formerRows_, gesture_);
  }
  dragged_.reset();
}

std::optional<Qt::CursorShape> BandTool::CursorAt(const SheetMouse& mouse) const {
  for (const RowHandle& handle : RowHandlesOf(view_)) {
    if (handle.box.contains(mouse.at)) return Qt::SplitVCursor;
  }
  return std::nullopt;
}

}  // namespace td::designer
