// Which items are selected: one for all views of a format.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "designer/model/format.h"
#include "designer/model/item_commands.h"

namespace td::designer {

class Selection {
 public:
  using Listener = std::function<void()>;

  // In the order in which they were selected.
  [[nodiscard]] const ItemIds& Items() const { return items_; }
  [[nodiscard]] bool Empty() const { return items_.empty(); }
  [[nodiscard]] bool Has(ItemId id) const;

  // Each tells the listeners if something has changed.
  void Select(ItemIds ids);
  void Add(const ItemIds& ids);
  void Toggle(ItemId id);
  void Clear() { Select({}); }
  // Drops what the format doesn't have any more.
  void KeepThoseOf(const Format& format);

  // Called after each change, in the order in which they were added, by the number returned.
  int AddListener(Listener listener);
  void RemoveListener(int number);

 private:
  ItemIds items_;
  std::vector<std::pair<int, Listener>> listeners_;
  int lastListener_ = 0;
};

}  // namespace td::designer
