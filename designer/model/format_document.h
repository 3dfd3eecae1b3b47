// A format that is being edited: what it is now, what it was when it was opened, and each step in
// between. Knows no selection and no window.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "designer/model/command.h"
#include "designer/model/item_commands.h"

namespace td::designer {

// What a step has changed, for the views.
struct DocumentChange {
  std::vector<ItemId> items;     // added, removed or changed
  bool itemsCameOrWent = false;  // or their order has changed
  bool format = false;           // a column of the format itself: bands may stand elsewhere
  bool variables = false;
};

class FormatDocument {
 public:
  using Listener = std::function<void(const DocumentChange& change)>;

  // A format as it was loaded, or a new one.
  explicit FormatDocument(Format format);
  FormatDocument(const FormatDocument&) = delete;
  FormatDocument& operator=(const FormatDocument&) = delete;

  [[nodiscard]] const Format& Current() const { return current_; }
  // As it was loaded or saved last: what FormatStore::Save compares the tables with.
  [[nodiscard]] const Format& Base() const { return base_; }
  [[nodiscard]] const Item* Find(ItemId id) const { return current_.items.Find(id); }

  // Called after each change, in the order in which they were added, by the number returned.
  int AddListener(Listener listener);
  void RemoveListener(int number);

  // Does a command that was made for Current(), as one step of the history; an empty one does
  // nothing and is no step. A command of the same gesture as the last one becomes one step with it.
  // What was undone before can't be redone any more. True if something has changed.
  bool Do(Command command);

  // Makes commands that continue each other one step: pass the same gesture to each.
  [[nodiscard]] std::uint64_t NewGesture() { return ++lastGesture_; }

  [[nodiscard]] bool CanUndo() const { return done_ > 0; }
  [[nodiscard]] bool CanRedo() const { return done_ < history_.size(); }
  // The step that would be undone or redone; only if there is one.
  [[nodiscard]] const Command& NextUndo() const { return history_[done_ - 1]; }
  [[nodiscard]] const Command& NextRedo() const { return history_[done_]; }
  // The items of the step, to be selected; nothing happens without one.
  std::vector<ItemId> Undo();
  std::vector<ItemId> Redo();

  // Whether it differs from what was loaded or saved last, by its steps.
  [[nodiscard]] bool IsModified() const { return saved_ != done_ || !savedIsReachable_; }

  // Tells that Current() is saved. `stored` is what the tables hold now: an engine may have rounded
  // a number. The steps stay and can still be undone.
  void MarkSaved(Format stored);

  // Starts over with another format, without a history.
  void Reset(Format format);

  // Takes up a recovered state on top of what was loaded: modified, without a history.
  void Recover(Format recovered);

  // Shorthands: each makes the command and does it. The ids are those of the added items.
  std::vector<ItemId> Add(std::span<const Item> items);
  std::vector<ItemId> Paste(std::span<const Item> items, double dx, double dy);
  bool Remove(const ItemIds& ids);
  bool Move(const ItemIds& ids, double dx, double dy, std::uint64_t gesture = 0);
  // A drag: the distance is that from where it began, and takes the place of the distance of the
  // same gesture before it, so that a long drag gathers no rounding.
  bool DragTo(const ItemIds& ids, double dx, double dy, std::uint64_t gesture);
  bool Place(ItemId id, const Box& place, std::uint64_t gesture = 0);
  bool Resize(const ItemIds& ids, const Box& from, const Box& to, std::uint64_t gesture = 0);
  bool Align(const ItemIds& ids, Alignment alignment);
  bool Distribute(const ItemIds& ids, Direction direction);
  bool Set(const ItemIds& ids, std::string_view column, const Value& value,
           std::uint64_t gesture = 0);
  bool SetNumber(const ItemIds& ids, std::string_view column, double number,
                 std::uint64_t gesture = 0);
  bool SetBand(const ItemIds& ids, ItemSite site);
  bool Reorder(const ItemIds& ids, Order order);
  bool SetFormat(std::string_view column, const Value& value, std::uint64_t gesture = 0);
  bool SetFormatNumber(std::string_view column, double number, std::uint64_t gesture = 0);

 private:
  void Tell(const Command& command) const;
  void TellAll() const;
  bool DoWithin(Command command, std::uint64_t gesture);
  void TakeBack(std::uint64_t gesture);

  Format base_;
  Format current_;
  std::vector<Command> history_;
  std::size_t done_ = 0;   // steps of the history that are done
  std::size_t saved_ = 0;  // as many were done when it was saved
  bool savedIsReachable_ = true;
  std::uint64_t lastGesture_ = 0;
  std::vector<std::pair<int, Listener>> listeners_;
  int lastListener_ = 0;
};

}  // namespace td::designer
