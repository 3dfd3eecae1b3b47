// A format as a designer holds it: its own columns, its items in their order, the variables of its
// bill type.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "designer/model/lengths.h"
#include "designer/model/row.h"
#include "store/template_item.h"

namespace td::designer {

// Names an item for as long as its document lives, also while it is removed and comes back.
using ItemId = std::uint64_t;

// One row of TDBillDetail.
struct Item {
  ItemId id = 0;
  Row row;     // the columns that a designer knows and the table has
  Row others;  // the application's own; without any for an item that is in no table yet

  // Codes that are none of theirs come as they are.
  [[nodiscard]] ItemSite Site() const;
  [[nodiscard]] ItemKind Kind() const;

  // The stored place and size, twips: of a row's item its place in the first row, of an item of the
  // bands 4 and 5 its place if there were one row. Lengths that are no numbers are 0.
  [[nodiscard]] Box Place() const;

  // The names that FObjectFieldName may hold; empty for a fixed text.
  [[nodiscard]] std::string FieldName() const { return row.Text("FObjectFieldName"); }
};

// The items in the order in which they are drawn. An item is found by its id without a search.
class ItemList {
 public:
  [[nodiscard]] std::size_t Size() const { return items_.size(); }
  [[nodiscard]] bool Empty() const { return items_.empty(); }
  [[nodiscard]] const Item& operator[](std::size_t index) const { return items_[index]; }
  [[nodiscard]] auto begin() const { return items_.begin(); }
  [[nodiscard]] auto end() const { return items_.end(); }

  [[nodiscard]] const Item* Find(ItemId id) const;
  [[nodiscard]] std::optional<std::size_t> IndexOf(ItemId id) const;

  void Append(Item item) { Insert(Size(), std::move(item)); }
  void Insert(std::size_t index, Item item);
  Item Remove(std::size_t index);
  void Move(std::size_t from, std::size_t to);
  // For changes of its columns; the id stays.
  [[nodiscard]] Item& Change(std::size_t index) { return items_[index]; }

 private:
  void BuildIndex() const;

  std::vector<Item> items_;
  mutable std::unordered_map<ItemId, std::size_t> index_;  // built when it is asked for
  mutable bool indexIsBuilt_ = false;
};

// The items band by band: the order of two items of different bands means nothing to a run.
[[nodiscard]] std::vector<const Item*> ByBand(const ItemList& items);

// One row of TDVariant: what an item may name in FObjectFieldName, and what that is.
struct Variable {
  Row row;
  Row others;

  [[nodiscard]] std::string Caption() const { return row.Text("FVarCaption"); }
  // A column of the print data, or a field that the run computes.
  [[nodiscard]] std::string Name() const { return row.Text("FVarName"); }
};

// A variable that is in no table yet.
[[nodiscard]] Variable NewVariable(const std::string& caption, const std::string& name);

struct Format {
  // Of TDBill; the key FTDBillID stands in `id`, the columns that a designer doesn't know in
  // `others`. A format that is in no table yet has the key Null.
  Value id = Null{};
  Row row;
  Row others;
  ItemList items;
  std::vector<Variable> variables;  // of the whole bill type, shared with its other formats

  // The columns that the item table has of those that a designer knows: those of a new item.
  ColumnNamesRef itemColumns;

  [[nodiscard]] std::string Name() const { return row.Text("FTDBillName"); }
  [[nodiscard]] int BillType() const { return static_cast<int>(row.Number("FTranType")); }

  // An unused item id.
  [[nodiscard]] ItemId NewItemId() { return ++lastItemId; }
  ItemId lastItemId = 0;
};

// A format that is in no table yet: A4 upright, ten rows of 6 mm, nothing on it.
[[nodiscard]] Format NewFormat(int billType, const std::string& name);

// An item of such a kind with the columns of the format's table, standing at a place. The id is 0:
// the document gives it one.
[[nodiscard]] Item NewItem(const Format& format, ItemKind kind, ItemSite site, const Box& place);

// The variable that an item names, compared exactly as the run does, or nothing.
[[nodiscard]] const Variable* VariableOf(const Format& format, const Item& item);

}  // namespace td::designer
