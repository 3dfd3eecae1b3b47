#include "designer/view/selection.h"

#include <algorithm>

namespace td::designer {

bool Selection::Has(ItemId id) const {
  return std::ranges::find(items_, id) != items_.end();
}

void Selection::Select(ItemIds ids) {
  if (ids == items_) return;
  items_ = std::move(ids);
  const auto listeners = listeners_;  // one may remove itself
  for (const auto& [number, listener] : listeners) listener();
}

void Selection::Add(const ItemIds& ids) {
  ItemIds all = items_;
  for (const ItemId id : ids) {
    if (!Has(id)) all.push_back(id);
  }
  Select(std::move(all));
}

void Selection::Toggle(ItemId id) {
  ItemIds all = items_;
  if (std::erase(all, id) == 0) all.push_back(id);
  Select(std::move(all));
}

void Selection::KeepThoseOf(const Format& format) {
  ItemIds kept = items_;
  std::erase_if(kept, [&format](ItemId id) { return format.items.Find(id) == nullptr; });
  Select(std::move(kept));
}

int Selection::AddListener(Listener listener) {
  listeners_.emplace_back(++lastListener_, std::move(listener));
  return lastListener_;
}

void Selection::RemoveListener(int number) {
  std::erase_if(listeners_, [number](const auto& entry) { return entry.first == number; });
}

}  // namespace td::designer
