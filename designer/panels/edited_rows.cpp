#include "designer/panels/edited_rows.h"

#include <algorithm>
#include <utility>

namespace td::designer {

SharedValue EditedRows::Shared(std::string_view column) const {
  SharedValue shared;
  for (const Row* row : Rows()) {
    if (!row->Has(column)) continue;
    const Value& value = row->Get(column);
    if (!shared.isThere) {
      shared = {.isThere = true, .isMixed = false, .value = value, .isSet = row->Flag(column)};
    } else if (!MeanTheSame(shared.value, value)) {
      shared.isMixed = true;
    }
  }
  return shared;
}

void EditedRows::Put(std::string_view column, const Value& value) {
  DoWithin(column, Setting(column, value));
}

void EditedRows::PutNumber(std::string_view column, double number) {
  DoWithin(column, SettingNumber(column, number));
}

void EditedRows::PutFlag(std::string_view column, bool flag) {
  const std::vector<const Row*> rows = Rows();
  if (rows.empty()) return;
  Row written = *rows.front();
  written.PutFlag(column, flag);
  Put(column, written.Get(column));
}

bool EditedRows::Do(Command command) {
  EndGesture();
  return workspace_.document.Do(std::move(command));
}

bool EditedRows::DoWithin(std::string_view name, Command command) {
  if (gestureColumn_ != name) {
    gestureColumn_ = name;
    gesture_ = workspace_.document.NewGesture();
  }
  command.gesture = gesture_;
  return workspace_.document.Do(std::move(command));
}

void EditedItems::Take(ItemIds ids) {
  if (ids == ids_) return;
  EndGesture();
  ids_ = std::move(ids);
}

std::vector<const Item*> EditedItems::Items() const {
  std::vector<const Item*> items;
  for (const ItemId id : ids_) {
    if (const Item* item = Current().items.Find(id)) items.push_back(item);
  }
  return items;
}

std::vector<const Row*> EditedItems::Rows() const {
  std::vector<const Row*> rows;
  for (const Item* item : Items()) rows.push_back(&item->row);
  return rows;
}

Command Together(Command first, const Command& second) {
  first.edits.insert(first.edits.end(), second.edits.begin(), second.edits.end());
  for (const ItemId id : second.items) {
    if (std::ranges::find(first.items, id) == first.items.end()) first.items.push_back(id);
  }
  return first;
}

}  // namespace td::designer
