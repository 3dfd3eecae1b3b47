// Changes of a format that can be done and undone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "designer/model/format.h"

namespace td::designer {

// The smallest changes. Each holds what it needs to be undone; done and undone in strict
// alternation.
struct InsertItem {
  std::size_t index;
  Item item;
};
struct RemoveItem {
  std::size_t index;
  Item item;
};
struct ReorderItem {
  std::size_t from;
  std::size_t to;
};
struct SetItemColumn {
  ItemId id;
  std::string column;
  Value before;
  Value after;
};
struct SetFormatColumn {
  std::string column;
  Value before;
  Value after;
};
struct InsertVariable {
  std::size_t index;
  Variable variable;
};
struct RemoveVariable {
  std::size_t index;
  Variable variable;
};
struct SetVariableColumn {
  std::size_t index;
  std::string column;
  Value before;
  Value after;
};

using Edit = std::variant<InsertItem, RemoveItem, ReorderItem, SetItemColumn, SetFormatColumn,
                          InsertVariable, RemoveVariable, SetVariableColumn>;

// What the user did, for the words of "undo …".
enum class CommandKind {
  kAdd,
  kPaste,
  kRemove,
  kMove,
  kResize,
  kAlign,
  kDistribute,
  kChangeItems,  // a column of items
  kChangeBand,
  kReorder,
  kChangeFormat,  // a column of the format itself
  kChangeVariables,
};

// One step of the user's. Commands of one kind and one gesture, any number but 0, are one step: a
// drag, an arrow key that is held down, a spin box that is turned.
struct Command {
  CommandKind kind = CommandKind::kChangeItems;
  std::vector<Edit> edits;
  std::vector<ItemId> items;  // what it was done to: what to select when it is done or undone
  std::uint64_t gesture = 0;

  [[nodiscard]] bool Empty() const { return edits.empty(); }
};

// Both give back the format as it was when the other one was called. A command belongs to the
// format for which it was made, in the state in which it was made.
void Do(Format& format, const Command& command);
void Undo(Format& format, const Command& command);

// Takes the following command in if both are steps of one gesture; false if not.
bool Merge(Command& command, const Command& following);

}  // namespace td::designer
