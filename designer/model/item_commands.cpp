#include "designer/model/item_commands.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "designer/model/known_columns.h"
#include "designer/model/sheet_layout.h"

namespace td::designer {
namespace {

Command Make(CommandKind kind) {
  return {.kind = kind, .edits = {}, .items = {}};
}

std::vector<const Item*> Chosen(const Format& format, const ItemIds& ids) {
  std::vector<const Item*> items;
  for (const ItemId id : ids) {
    const Item* item = format.items.Find(id);
    if (item != nullptr && std::ranges::find(items, item) == items.end()) items.push_back(item);
  }
  return items;
}

void Note(Command& command, const Item& item) {
  if (command.items.empty() || command.items.back() != item.id) command.items.push_back(item.id);
}

void SetValue(Command& command, const Item& item, std::string_view column, const Value& value) {
  if (!item.row.Has(column) || item.row.Get(column) == value) return;
  command.edits.push_back(SetItemColumn{item.id, std::string(column), item.row.Get(column), value});
}

// The value that a column has when a number is written into it, in the kind that it holds.
Value NumberFor(const Row& row, std::string_view column, double number) {
  Row written = row;
  written.PutNumber(column, number);
  return written.Get(column);
}

// A number that is there already stays as it is stored.
void SetNumber(Command& command, const Item& item, std::string_view column, double number) {
  if (!item.row.Has(column)) return;
  const Value& stored = item.row.Get(column);
  if (!IsNull(stored) && item.row.Number(column) == number) return;
  SetValue(command, item, column, NumberFor(item.row, column, number));
}

void SetLength(Command& command, const Item& item, std::string_view column, double twips) {
  if (item.row.Number(column) == twips) return;
  SetNumber(command, item, column, StoredTwips(twips));
}

void Place(Command& command, const Item& item, const Box& place) {
  SetLength(command, item, "FLeft", place.left);
  SetLength(command, item, "FTop", place.top);
  SetLength(command, item, "FWidth", place.width);
  SetLength(command, item, "FHeight", place.height);
}

// The row of an item with the columns that this format's table has, in its order.
Row Fitted(const Row& row, const ColumnNamesRef& names) {
  Row fitted = NewRow(ItemColumns(), names);
  for (std::size_t i = 0; i < names->Size(); ++i) {
    if (row.Has(names->Name(i))) fitted.Set(names->Name(i), row.Get(names->Name(i)));
  }
  return fitted;
}

Command Insert(Format& format, std::span<const Item> items, CommandKind kind, double dx,
               double dy) {
  Command command = Make(kind);
  std::size_t index = format.items.Size();
  for (const Item& given : items) {
    Item item{.id = format.NewItemId(),
              .row = Fitted(given.row, format.itemColumns),
              .others = given.others};
    if (dx != 0) item.row.PutNumber("FLeft", StoredTwips(item.row.Number("FLeft") + dx));
    if (dy != 0) item.row.PutNumber("FTop", StoredTwips(item.row.Number("FTop") + dy));
    command.items.push_back(item.id);
    command.edits.push_back(InsertItem{index++, std::move(item)});
  }
  return command;
}

// The place of an item on the sheet, lines without their thickness.
Box OnSheet(const SheetLayout& layout, const Item& item) {
  const Point offset = layout.OffsetOf(item.Site());
  return item.Place().MovedBy(offset.x, offset.y);
}

// How far a box is from where the alignment wants it.
Point ShiftTo(const Box& box, const Box& target, Alignment alignment) {
  switch (alignment) {
    case Alignment::kLeft:
      return {target.left - box.left, 0};
    case Alignment::kCentre:
      return {target.CentreX() - box.CentreX(), 0};
    case Alignment::kRight:
      return {target.Right() - box.Right(), 0};
    case Alignment::kTop:
      return {0, target.top - box.top};
    case Alignment::kMiddle:
      return {0, target.CentreY() - box.CentreY()};
    case Alignment::kBottom:
      return {0, target.Bottom() - box.Bottom()};
  }
  return {};
}

// Where a coordinate of one span lies in another.
double Mapped(double value, double from, double fromSize, double to, double toSize) {
  return fromSize == 0 ? value + to - from : to + (value - from) * toSize / fromSize;
}

// The wanted order of the ids, from the present one.
std::vector<ItemId> Reordered(const Format& format, const ItemIds& ids, Order order) {
  std::vector<ItemId> sequence;
  for (const Item& item : format.items) sequence.push_back(item.id);
  const auto isChosen = [&](ItemId id) { return std::ranges::find(ids, id) != ids.end(); };
  const auto siteOf = [&](ItemId id) { return format.items.Find(id)->Site(); };
  if (order == Order::kToFront) {
    std::stable_partition(sequence.begin(), sequence.end(),
                          [&](ItemId id) { return !isChosen(id); });
    return sequence;
  }
  if (order == Order::kToBack) {
    std::stable_partition(sequence.begin(), sequence.end(), isChosen);
    return sequence;
  }
  // One of another band is passed without an effect, so it doesn't count.
  if (order == Order::kForward) std::ranges::reverse(sequence);
  for (std::size_t i = 0; i < sequence.size(); ++i) {
    if (!isChosen(sequence[i])) continue;
    const ItemSite site = siteOf(sequence[i]);
    for (std::size_t k = i; k > 0; --k) {
      const ItemId passed = sequence[k - 1];
      if (isChosen(passed) && siteOf(passed) == site) break;
      std::swap(sequence[k - 1], sequence[k]);
      if (siteOf(passed) == site) break;
    }
  }
  if (order == Order::kForward) std::ranges::reverse(sequence);
  return sequence;
}

}  // namespace

Command AddItems(Format& format, std::span<const Item> items) {
  return Insert(format, items, CommandKind::kAdd, 0, 0);
}

Command PasteItems(Format& format, std::span<const Item> items, double dx, double dy) {
  return Insert(format, items, CommandKind::kPaste, dx, dy);
}

Command RemoveItems(const Format& format, const ItemIds& ids) {
  Command command = Make(CommandKind::kRemove);
  std::vector<std::size_t> places;
  for (const Item* item : Chosen(format, ids)) places.push_back(*format.items.IndexOf(item->id));
  std::ranges::sort(places, std::greater());  // from the end on, so that the places stay right
  for (const std::size_t place : places) {
    command.edits.push_back(RemoveItem{place, format.items[place]});
    command.items.push_back(format.items[place].id);
  }
  return command;
}

Command MoveItems(const Format& format, const ItemIds& ids, double dx, double dy) {
  Command command = Make(CommandKind::kMove);
  for (const Item* item : Chosen(format, ids)) {
    Place(command, *item, item->Place().MovedBy(dx, dy));
    Note(command, *item);
  }
  return command;
}

Command PlaceItem(const Format& format, ItemId id, const Box& place) {
  Command command = Make(CommandKind::kResize);
  for (const Item* item : Chosen(format, {id})) {
    Place(command, *item, place);
    Note(command, *item);
  }
  return command;
}

Command ResizeItems(const Format& format, const ItemIds& ids, const Box& from, const Box& to) {
  Command command = Make(CommandKind::kResize);
  const SheetLayout layout = LayoutOf(format);
  for (const Item* item : Chosen(format, ids)) {
    const Box box = OnSheet(layout, *item);
    const Point offset = layout.OffsetOf(item->Site());
    const double left = Mapped(box.left, from.left, from.width, to.left, to.width);
    const double top = Mapped(box.top, from.top, from.height, to.top, to.height);
    const double right = Mapped(box.Right(), from.left, from.width, to.left, to.width);
    const double bottom = Mapped(box.Bottom(), from.top, from.height, to.top, to.height);
    Place(command, *item,
          {left - offset.x, top - offset.y, std::max(right - left, 0.0),
           std::max(bottom - top, 0.0)});
    Note(command, *item);
  }
  return command;
}

Command AlignItems(const Format& format, const ItemIds& ids, Alignment alignment) {
  Command command = Make(CommandKind::kAlign);
  const SheetLayout layout = LayoutOf(format);
  const std::vector<const Item*> items = Chosen(format, ids);
  if (items.empty()) return command;
  Box target = OnSheet(layout, *items.front());
  for (const Item* item : items) target = Around(target, OnSheet(layout, *item));
  if (items.size() == 1) target = {0, 0, layout.width, layout.height};
  for (const Item* item : items) {
    const Point shift = ShiftTo(OnSheet(layout, *item), target, alignment);
    Place(command, *item, item->Place().MovedBy(shift.x, shift.y));
    Note(command, *item);
  }
  return command;
}

Command DistributeItems(const Format& format, const ItemIds& ids, Direction direction) {
  Command command = Make(CommandKind::kDistribute);
  const SheetLayout layout = LayoutOf(format);
  std::vector<const Item*> items = Chosen(format, ids);
  if (items.size() < 3) return command;
  const bool across = direction == Direction::kAcross;
  const auto startOf = [&](const Item* item) {
    const Box box = OnSheet(layout, *item);
    return across ? box.left : box.top;
  };
  const auto sizeOf = [&](const Item* item) {
    return across ? item->Place().width : item->Place().height;
  };
  std::ranges::stable_sort(items, {}, startOf);
  double used = 0;
  for (const Item* item : items) used += sizeOf(item);
  const double room = startOf(items.back()) + sizeOf(items.back()) - startOf(items.front());
  const double gap = (room - used) / static_cast<double>(items.size() - 1);
  double start = startOf(items.front());
  for (const Item* item : items) {
    const bool isOutermost = item == items.front() || item == items.back();
    const double shift = isOutermost ? 0 : start - startOf(item);
    Place(command, *item, item->Place().MovedBy(across ? shift : 0, across ? 0 : shift));
    Note(command, *item);
    start += sizeOf(item) + gap;
  }
  return command;
}

Command EqualiseItems(const Format& format, const ItemIds& ids, Direction direction) {
  Command command = Make(CommandKind::kResize);
  const std::vector<const Item*> items = Chosen(format, ids);
  if (items.empty()) return command;
  const std::string_view column = direction == Direction::kAcross ? "FWidth" : "FHeight";
  for (const Item* item : items) {
    SetNumber(command, *item, column, items.front()->row.Number(column));
    Note(command, *item);
  }
  return command;
}

Command SetOnItems(const Format& format, const ItemIds& ids, std::string_view column,
                   const Value& value) {
  Command command = Make(CommandKind::kChangeItems);
  for (const Item* item : Chosen(format, ids)) {
    SetValue(command, *item, column, value);
    Note(command, *item);
  }
  return command;
}

Command SetNumberOnItems(const Format& format, const ItemIds& ids, std::string_view column,
                         double number) {
  Command command = Make(CommandKind::kChangeItems);
  for (const Item* item : Chosen(format, ids)) {
    SetNumber(command, *item, column, number);
    Note(command, *item);
  }
  return command;
}

Command ChangeBand(const Format& format, const ItemIds& ids, ItemSite site) {
  Command command = Make(CommandKind::kChangeBand);
  const SheetLayout layout = LayoutOf(format);
  for (const Item* item : Chosen(format, ids)) {
    const Box shown = OnSheet(layout, *item);
    const Point stored = ToStored(layout, site, {shown.left, shown.top});
    SetNumber(command, *item, "FSite", static_cast<double>(site));
    SetLength(command, *item, "FTop", stored.y);
    Note(command, *item);
  }
  return command;
}

Command ReorderItems(const Format& format, const ItemIds& ids, Order order) {
  Command command = Make(CommandKind::kReorder);
  std::vector<ItemId> sequence;
  for (const Item& item : format.items) sequence.push_back(item.id);
  const std::vector<ItemId> wanted = Reordered(format, ids, order);
  for (std::size_t to = 0; to < wanted.size(); ++to) {
    if (sequence[to] == wanted[to]) continue;
    const auto place = std::ranges::find(sequence, wanted[to]);
    const auto from = static_cast<std::size_t>(place - sequence.begin());
    sequence.erase(place);
    sequence.insert(sequence.begin() + static_cast<std::ptrdiff_t>(to), wanted[to]);
    command.edits.push_back(ReorderItem{from, to});
  }
  for (const Item* item : Chosen(format, ids)) Note(command, *item);
  return command;
}

Command SetOnFormat(const Format& format, std::string_view column, const Value& value) {
  Command command = Make(CommandKind::kChangeFormat);
  if (format.row.Has(column) && format.row.Get(column) != value) {
    command.edits.push_back(SetFormatColumn{std::string(column), format.row.Get(column), value});
  }
  return command;
}

Command SetNumberOnFormat(const Format& format, std::string_view column, double number) {
  const bool isThere = !IsNull(format.row.Get(column)) && format.row.Number(column) == number;
  if (isThere) return Make(CommandKind::kChangeFormat);
  return SetOnFormat(format, column, NumberFor(format.row, column, number));
}

Command AddVariable(const Format& format, const Variable& variable) {
  Command command = Make(CommandKind::kChangeVariables);
  command.edits.push_back(InsertVariable{format.variables.size(), variable});
  return command;
}

Command RemoveVariableAt(const Format& format, std::size_t index) {
  Command command = Make(CommandKind::kChangeVariables);
  if (index < format.variables.size()) {
    command.edits.push_back(RemoveVariable{index, format.variables[index]});
  }
  return command;
}

Command SetOnVariable(const Format& format, std::size_t index, std::string_view column,
                      const std::string& text) {
  Command command = Make(CommandKind::kChangeVariables);
  if (index >= format.variables.size()) return command;
  const Variable& variable = format.variables[index];
  if (!variable.row.Has(column) || variable.row.Get(column) == Value(text)) return command;
  command.edits.push_back(
      SetVariableColumn{index, std::string(column), variable.row.Get(column), text});
  if (FindColumn(VariableColumns(), column) != &VariableColumns().front()) return command;
  for (const Item& item : format.items) {
    if (VariableOf(format, item) != &variable) continue;
    const bool repeats = item.row.Text("FObjectCaption") == item.FieldName();
    SetValue(command, item, "FObjectFieldName", text);
    if (repeats) SetValue(command, item, "FObjectCaption", text);
    Note(command, item);
  }
  return command;
}

}  // namespace td::designer
