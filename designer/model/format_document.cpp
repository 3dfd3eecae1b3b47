#include "designer/model/format_document.h"

#include <algorithm>
#include <utility>

namespace td::designer {
namespace {

struct Reach {
  DocumentChange& change;

  void operator()(const InsertItem& edit) const { Came(edit.item.id); }
  void operator()(const RemoveItem& edit) const { Came(edit.item.id); }
  void operator()(const ReorderItem&) const { change.itemsCameOrWent = true; }
  void operator()(const SetItemColumn& edit) const { Touched(edit.id); }
  void operator()(const SetFormatColumn&) const { change.format = true; }
  void operator()(const InsertVariable&) const { change.variables = true; }
  void operator()(const RemoveVariable&) const { change.variables = true; }
  void operator()(const SetVariableColumn&) const { change.variables = true; }

  void Came(ItemId id) const {
    change.itemsCameOrWent = true;
    Touched(id);
  }
  void Touched(ItemId id) const {
    if (change.items.empty() || change.items.back() != id) change.items.push_back(id);
  }
};

}  // namespace

FormatDocument::FormatDocument(Format format) : base_(format), current_(std::move(format)) {}

int FormatDocument::AddListener(Listener listener) {
  listeners_.emplace_back(++lastListener_, std::move(listener));
  return lastListener_;
}

void FormatDocument::RemoveListener(int number) {
  std::erase_if(listeners_, [number](const auto& entry) { return entry.first == number; });
}

bool FormatDocument::Do(Command command) {
  if (command.Empty()) return false;
  if (saved_ > done_) savedIsReachable_ = false;
  history_.resize(done_);
  td::designer::Do(current_, command);
  const bool mayMerge = done_ > 0 && saved_ != done_;
  if (mayMerge && Merge(history_.back(), command)) {
    Tell(command);
    return true;
  }
  history_.push_back(std::move(command));
  ++done_;
  Tell(history_.back());
  return true;
}

std::vector<ItemId> FormatDocument::Undo() {
  if (!CanUndo()) return {};
  const Command& step = history_[--done_];
  td::designer::Undo(current_, step);
  std::vector<ItemId> items = step.items;
  Tell(step);
  return items;
}

std::vector<ItemId> FormatDocument::Redo() {
  if (!CanRedo()) return {};
  const Command& step = history_[done_++];
  td::designer::Do(current_, step);
  std::vector<ItemId> items = step.items;
  Tell(step);
  return items;
}

void FormatDocument::MarkSaved(Format stored) {
  stored.lastItemId = std::max(stored.lastItemId, current_.lastItemId);
  base_ = stored;
  current_ = std::move(stored);
  saved_ = done_;
  savedIsReachable_ = true;
  TellAll();
}

void FormatDocument::Reset(Format format) {
  base_ = format;
  current_ = std::move(format);
  history_.clear();
  done_ = 0;
  saved_ = 0;
  savedIsReachable_ = true;
  TellAll();
}

void FormatDocument::Recover(Format recovered) {
  history_.clear();
  done_ = 0;
  saved_ = 0;
  savedIsReachable_ = false;
  current_ = std::move(recovered);
  TellAll();
}

void FormatDocument::Tell(const Command& command) const {
  DocumentChange change;
  for (const Edit& edit : command.edits) std::visit(Reach{change}, edit);
  const auto listeners = listeners_;  // one may remove itself
  for (const auto& [number, listener] : listeners) listener(change);
}

void FormatDocument::TellAll() const {
  DocumentChange change{.items = {}, .itemsCameOrWent = true, .format = true, .variables = true};
  for (const Item& item : current_.items) change.items.push_back(item.id);
  const auto listeners = listeners_;
  for (const auto& [number, listener] : listeners) listener(change);
}

bool FormatDocument::DoWithin(Command command, std::uint64_t gesture) {
  command.gesture = gesture;
  return Do(std::move(command));
}

// Undoes the last step if it belongs to the gesture, and forgets it.
void FormatDocument::TakeBack(std::uint64_t gesture) {
  const bool isLast = CanUndo() && !CanRedo() && saved_ != done_;
  if (!isLast || gesture == 0 || history_.back().gesture != gesture) return;
  const Command step = std::move(history_.back());
  history_.pop_back();
  --done_;
  td::designer::Undo(current_, step);
  Tell(step);
}

std::vector<ItemId> FormatDocument::Add(std::span<const Item> items) {
  Command command = AddItems(current_, items);
  std::vector<ItemId> ids = command.items;
  Do(std::move(command));
  return ids;
}

std::vector<ItemId> FormatDocument::Paste(std::span<const Item> items, double dx, double dy) {
  Command command = PasteItems(current_, items, dx, dy);
  std::vector<ItemId> ids = command.items;
  Do(std::move(command));
  return ids;
}

bool FormatDocument::Remove(const ItemIds& ids) {
  return Do(RemoveItems(current_, ids));
}

bool FormatDocument::Move(const ItemIds& ids, double dx, double dy, std::uint64_t gesture) {
  return DoWithin(MoveItems(current_, ids, dx, dy), gesture);
}

bool FormatDocument::DragTo(const ItemIds& ids, double dx, double dy, std::uint64_t gesture) {
  TakeBack(gesture);
  return DoWithin(MoveItems(current_, ids, dx, dy), gesture);
}

bool FormatDocument::Place(ItemId id, const Box& place, std::uint64_t gesture) {
  return DoWithin(PlaceItem(current_, id, place), gesture);
}

bool FormatDocument::Resize(const ItemIds& ids, const Box& from, const Box& to,
                            std::uint64_t gesture) {
  return DoWithin(ResizeItems(current_, ids, from, to), gesture);
}

bool FormatDocument::Align(const ItemIds& ids, Alignment alignment) {
  return Do(AlignItems(current_, ids, alignment));
}

bool FormatDocument::Distribute(const ItemIds& ids, Direction direction) {
  return Do(DistributeItems(current_, ids, direction));
}

bool FormatDocument::Set(const ItemIds& ids, std::string_view column, const Value& value,
                         std::uint64_t gesture) {
  return DoWithin(SetOnItems(current_, ids, column, value), gesture);
}

bool FormatDocument::SetNumber(const ItemIds& ids, std::string_view column, double number,
                               std::uint64_t gesture) {
  return DoWithin(SetNumberOnItems(current_, ids, column, number), gesture);
}

bool FormatDocument::SetBand(const ItemIds& ids, ItemSite site) {
  return Do(ChangeBand(current_, ids, site));
}

bool FormatDocument::Reorder(const ItemIds& ids, Order order) {
  return Do(ReorderItems(current_, ids, order));
}

bool FormatDocument::SetFormat(std::string_view column, const Value& value, std::uint64_t gesture) {
  return DoWithin(SetOnFormat(current_, column, value), gesture);
}

bool FormatDocument::SetFormatNumber(std::string_view column, double number,
                                     std::uint64_t gesture) {
  return DoWithin(SetNumberOnFormat(current_, column, number), gesture);
}

}  // namespace td::designer
