#include "designer/model/hit_testing.h"

#include <algorithm>

namespace td::designer {
namespace {

bool IsVisible(const Item& item, const HitOptions& options) {
  return options.onlyValues ? IsDrawnOnForm(item) : IsDrawn(item);
}

Box BoxOf(const SheetLayout& layout, const Item& item, const HitOptions& options) {
  if (options.boxOfItem) {
    if (const auto box = options.boxOfItem(item)) return *box;
  }
  return DrawnBox(layout, item);
}

bool IsUnder(const SheetLayout& layout, const Item& item, Point point, const HitOptions& options) {
  const Box box = BoxOf(layout, item, options).GrownBy(options.tolerance);
  if (box.Holds(point)) return true;
  if (!options.inAllRows || item.Site() != ItemSite::kRow) return false;
  for (int row = 1; row < layout.rowsPerPage; ++row) {
    if (box.MovedBy(0, row * layout.rowHeight).Holds(point)) return true;
  }
  return false;
}

}  // namespace

std::vector<ItemId> ItemsAt(const SheetLayout& layout, const Format& format, Point point,
                            const HitOptions& options) {
  std::vector<const Item*> found;
  for (const Item& item : format.items) {
    if (IsVisible(item, options) && IsUnder(layout, item, point, options)) found.push_back(&item);
  }
  std::ranges::stable_sort(found, {}, [](const Item* item) { return item->Site(); });
  std::vector<ItemId> ids;
  for (auto item = found.rbegin(); item != found.rend(); ++item) ids.push_back((*item)->id);
  return ids;
}

std::vector<ItemId> ItemsIn(const SheetLayout& layout, const Format& format, const Box& area,
                            bool touching, const HitOptions& options) {
  std::vector<ItemId> ids;
  for (const Item& item : format.items) {
    if (!IsVisible(item, options)) continue;
    const Box box = BoxOf(layout, item, options);
    const bool isInside = Around(area, box) == area;
    if (isInside || (touching && area.Meets(box))) ids.push_back(item.id);
  }
  return ids;
}

std::optional<Box> BoxAround(const SheetLayout& layout, const Format& format,
                             const std::vector<ItemId>& ids) {
  std::optional<Box> around;
  for (const ItemId id : ids) {
    const Item* item = format.items.Find(id);
    if (item == nullptr) continue;
    const Box box = DrawnBox(layout, *item);
    around = around ? Around(*around, box) : box;
  }
  return around;
}

}  // namespace td::designer
