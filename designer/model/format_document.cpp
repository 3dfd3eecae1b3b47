#include "designer/model/format_document.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
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

DocumentChange ChangeOf(const Command& command) {
  DocumentChange change;
  for (const Edit& edit : command.edits) std::visit(Reach{change}, edit);
  return change;
}

bool IsNone(const DocumentChange& change) {
  return change.items.empty() && !change.itemsCameOrWent && !change.format && !change.variables;
}

void Add(DocumentChange& change, const DocumentChange& other) {
  const std::unordered_set<ItemId> known(change.items.begin(), change.items.end());
  std::ranges::copy_if(other.items, std::back_inserter(change.items),
                       [&known](ItemId id) { return !known.contains(id); });
  change.itemsCameOrWent |= other.itemsCameOrWent;
  change.format |= other.format;
  change.variables |= other.variables;
}

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
  const DocumentChange change = ChangeOf(command);
  Enter(std::move(command));
  Tell(change);
  return true;
}

// As the last step of the history. A step that was saved takes nothing more in: an undo leads back
// to what the tables hold.
void FormatDocument::Enter(Command command) {
  if (saved_ > done_) savedIsReachable_ = false;
  history_.resize(done_);
  td::designer::Do(current_, command);
  const bool mayMerge = done_ > 0 && IsModified();
  if (mayMerge && Merge(history_.back(), command)) return;
  history_.push_back(std::move(command));
  ++done_;
}

std::vector<ItemId> FormatDocument::Undo() {
  if (!CanUndo()) return {};
  const Command& step = history_[--done_];
  td::designer::Undo(current_, step);
  std::vector<ItemId> items = step.items;
  Tell(ChangeOf(step));
  return items;
}

std::vector<ItemId> FormatDocument::Redo() {
  if (!CanRedo()) return {};
  const Command& step = history_[done_++];
  td::designer::Do(current_, step);
  std::vector<ItemId> items = step.items;
  Tell(ChangeOf(step));
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

void FormatDocument::Tell(const DocumentChange& change) const {
  const auto listeners = listeners_;  // one may remove itself
  for (const auto& [number, listener] : listeners) listener(change);
}

void FormatDocument::TellAll() const {
  DocumentChange change{.items = {}, .itemsCameOrWent = true, .format = true, .variables = true};
  for (const Item& item : current_.items) change.items.push_back(item.id);
  Tell(change);
}

bool FormatDocument::DoWithin(Command command, std::uint64_t gesture) {
  command.gesture = gesture;
  return Do(std::move(command));
}

// Undoes the last steps as far as they belong to the gesture, and forgets them; nobody is told. A
// gesture goes on over a save in its middle: what was saved is no step any more then.
DocumentChange FormatDocument::TakeBack(std::uint64_t gesture) {
  DocumentChange change;
  while (gesture != 0 && CanUndo() && !CanRedo() && history_.back().gesture == gesture) {
    if (saved_ == done_) savedIsReachable_ = false;
    const Command step = std::move(history_.back());
    history_.pop_back();
    --done_;
    td::designer::Undo(current_, step);
    designer::Add(change, ChangeOf(step));
  }
  return change;
}

// The listeners hear once of what is undone and what is done in its place.
bool FormatDocument::DoAnew(std::uint64_t gesture,
                            const std::function<Command(const Format& format)>& make) {
  DocumentChange change = TakeBack(gesture);
  Command command = make(current_);
  command.gesture = gesture;
  if (!command.Empty()) {
    designer::Add(change, ChangeOf(command));
    Enter(std::move(command));
  }
  if (IsNone(change)) return false;
  Tell(change);
  return true;
}

bool FormatDocument::Forget(std::uint64_t gesture) {
  return DoAnew(gesture, [](const Format&) { return Command(); });
}

std::vector<ItemId> FormatDocument::DoAdding(Command command) {
  std::vector<ItemId> ids = command.items;
  Do(std::move(command));
  return ids;
}

std::vector<ItemId> FormatDocument::Add(std::span<const Item> items) {
  return DoAdding(AddItems(current_, items));
}

std::vector<ItemId> FormatDocument::Paste(std::span<const Item> items, double dx, double dy) {
  return DoAdding(PasteItems(current_, items, dx, dy));
}

bool FormatDocument::Remove(const ItemIds& ids) {
  return Do(RemoveItems(current_, ids));
}

bool FormatDocument::Move(const ItemIds& ids, double dx, double dy, std::uint64_t gesture) {
  return DoWithin(MoveItems(current_, ids, dx, dy), gesture);
}

bool FormatDocument::DragTo(const ItemIds& ids, double dx, double dy, std::uint64_t gesture) {
  return DoAnew(gesture, [&](const Format& format) { return MoveItems(format, ids, dx, dy); });
}

bool FormatDocument::DragSize(const ItemIds& ids, const Box& from, const Box& to,
                              std::uint64_t gesture) {
  return DoAnew(gesture, [&](const Format& format) { return ResizeItems(format, ids, from, to); });
}

bool FormatDocument::Place(ItemId id, const Box& place, std::uint64_t gesture) {
  return DoWithin(PlaceItem(current_, id, place), gesture);
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
