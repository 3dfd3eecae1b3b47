#include "designer/model/format.h"

#include <algorithm>
#include <utility>

#include "designer/model/known_columns.h"

namespace td::designer {

ItemSite Item::Site() const {
  return static_cast<ItemSite>(row.Number("FSite"));
}

ItemKind Item::Kind() const {
  return static_cast<ItemKind>(row.Number("FTypeID"));
}

Box Item::Place() const {
  return {row.Number("FLeft"), row.Number("FTop"), row.Number("FWidth"), row.Number("FHeight")};
}

const Item* ItemList::Find(ItemId id) const {
  const auto index = IndexOf(id);
  return index ? &items_[*index] : nullptr;
}

std::optional<std::size_t> ItemList::IndexOf(ItemId id) const {
  if (!indexIsBuilt_) BuildIndex();
  const auto found = index_.find(id);
  if (found == index_.end()) return std::nullopt;
  return found->second;
}

void ItemList::BuildIndex() const {
  index_.clear();
  for (std::size_t i = 0; i < items_.size(); ++i) index_[items_[i].id] = i;
  indexIsBuilt_ = true;
}

void ItemList::Insert(std::size_t index, Item item) {
  indexIsBuilt_ = false;
  items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(index), std::move(item));
}

Item ItemList::Remove(std::size_t index) {
  indexIsBuilt_ = false;
  const auto place = items_.begin() + static_cast<std::ptrdiff_t>(index);
  Item removed = std::move(*place);
  items_.erase(place);
  return removed;
}

void ItemList::Move(std::size_t from, std::size_t to) {
  Insert(to, Remove(from));
}

std::vector<const Item*> ByBand(const ItemList& items) {
  std::vector<const Item*> ordered;
  for (const Item& item : items) ordered.push_back(&item);
  std::ranges::stable_sort(ordered, {}, [](const Item* item) { return item->row.Number("FSite"); });
  return ordered;
}

Variable NewVariable(const std::string& caption, const std::string& name) {
  Variable variable{.row = NewRow(VariableColumns()), .others = {}};
  variable.row.Set("FVarCaption", caption);
  variable.row.Set("FVarName", name);
  return variable;
}

Format NewFormat(int billType, const std::string& name) {
  Format format;
  format.row = NewRow(FormatColumns());
  format.row.PutNumber("FTranType", billType);
  format.row.Set("FTDBillName", name);
  format.itemColumns = NamesOf(ItemColumns());
  return format;
}

Item NewItem(const Format& format, ItemKind kind, ItemSite site, const Box& place) {
  Item item{.id = 0, .row = NewRow(ItemColumns(), format.itemColumns), .others = {}};
  item.row.PutNumber("FTypeID", static_cast<double>(kind));
  item.row.PutNumber("FSite", static_cast<double>(site));
  item.row.PutNumber("FLeft", StoredTwips(place.left));
  item.row.PutNumber("FTop", StoredTwips(place.top));
  item.row.PutNumber("FWidth", StoredTwips(place.width));
  item.row.PutNumber("FHeight", StoredTwips(place.height));
  return item;
}

const Variable* VariableOf(const Format& format, const Item& item) {
  const std::string name = item.FieldName();
  if (name.empty()) return nullptr;
  const auto found = std::ranges::find_if(
      format.variables, [&](const Variable& variable) { return variable.Caption() == name; });
  return found == format.variables.end() ? nullptr : &*found;
}

}  // namespace td::designer
