#include "designer/model/command.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace td::designer {
namespace {

std::ptrdiff_t Offset(std::size_t index) {
  return static_cast<std::ptrdiff_t>(index);
}

void SetColumn(Format& format, ItemId id, const std::string& column, const Value& value) {
  if (const auto index = format.items.IndexOf(id))
    format.items.Change(*index).row.Set(column, value);
}

struct Doing {
  Format& format;

  // An id that came in by a command is used, wherever the command was made.
  void operator()(const InsertItem& edit) const {
    format.items.Insert(edit.index, edit.item);
    format.lastItemId = std::max(format.lastItemId, edit.item.id);
  }
  void operator()(const RemoveItem& edit) const { format.items.Remove(edit.index); }
  void operator()(const ReorderItem& edit) const { format.items.Move(edit.from, edit.to); }
  void operator()(const SetItemColumn& edit) const {
    SetColumn(format, edit.id, edit.column, edit.after);
  }
  void operator()(const SetFormatColumn& edit) const { format.row.Set(edit.column, edit.after); }
  void operator()(const InsertVariable& edit) const {
    format.variables.insert(format.variables.begin() + Offset(edit.index), edit.variable);
  }
  void operator()(const RemoveVariable& edit) const {
    format.variables.erase(format.variables.begin() + Offset(edit.index));
  }
  void operator()(const SetVariableColumn& edit) const {
    format.variables[edit.index].row.Set(edit.column, edit.after);
  }
};

struct Reversal {
  Edit operator()(const InsertItem& edit) const { return RemoveItem{edit.index, edit.item}; }
  Edit operator()(const RemoveItem& edit) const { return InsertItem{edit.index, edit.item}; }
  Edit operator()(const ReorderItem& edit) const { return ReorderItem{edit.to, edit.from}; }
  Edit operator()(const SetItemColumn& edit) const {
    return SetItemColumn{edit.id, edit.column, edit.after, edit.before};
  }
  Edit operator()(const SetFormatColumn& edit) const {
    return SetFormatColumn{edit.column, edit.after, edit.before};
  }
  Edit operator()(const InsertVariable& edit) const {
    return RemoveVariable{edit.index, edit.variable};
  }
  Edit operator()(const RemoveVariable& edit) const {
    return InsertVariable{edit.index, edit.variable};
  }
  Edit operator()(const SetVariableColumn& edit) const {
    return SetVariableColumn{edit.index, edit.column, edit.after, edit.before};
  }
};

// Where an edit sets something, or nothing.
struct Target {
  std::string operator()(const SetItemColumn& edit) const {
    return "i" + std::to_string(edit.id) + "/" + edit.column;
  }
  std::string operator()(const SetFormatColumn& edit) const { return "f/" + edit.column; }
  std::string operator()(const SetVariableColumn& edit) const {
    return "v" + std::to_string(edit.index) + "/" + edit.column;
  }
  template <typename Other>
  std::string operator()(const Other&) const {
    return {};
  }
};

struct After {
  const Value* operator()(const SetItemColumn& edit) const { return &edit.after; }
  const Value* operator()(const SetFormatColumn& edit) const { return &edit.after; }
  const Value* operator()(const SetVariableColumn& edit) const { return &edit.after; }
  template <typename Other>
  const Value* operator()(const Other&) const {
    return nullptr;
  }
};

void PutAfter(Edit& edit, const Value& after) {
  std::visit(
      [&](auto& any) {
        if constexpr (requires { any.after; }) any.after = after;
      },
      edit);
}

// Only settings merge: they can be put together in any number, by their targets.
bool HoldsOnlySettings(const Command& command) {
  return std::ranges::none_of(
      command.edits, [](const Edit& edit) { return std::visit(After{}, edit) == nullptr; });
}

}  // namespace

void Do(Format& format, const Command& command) {
  for (const Edit& edit : command.edits) std::visit(Doing{format}, edit);
}

void Undo(Format& format, const Command& command) {
  for (auto edit = command.edits.rbegin(); edit != command.edits.rend(); ++edit) {
    std::visit(Doing{format}, std::visit(Reversal{}, *edit));
  }
}

bool Merge(Command& command, const Command& following) {
  if (command.gesture == 0 || command.gesture != following.gesture) return false;
  if (command.kind != following.kind) return false;
  if (!HoldsOnlySettings(command) || !HoldsOnlySettings(following)) return false;
  std::unordered_map<std::string, std::size_t> places;
  for (std::size_t i = 0; i < command.edits.size(); ++i) {
    places[std::visit(Target{}, command.edits[i])] = i;
  }
  for (const Edit& edit : following.edits) {
    const auto [place, isNew] = places.emplace(std::visit(Target{}, edit), command.edits.size());
    if (isNew) {
      command.edits.push_back(edit);
    } else {
      PutAfter(command.edits[place->second], *std::visit(After{}, edit));
    }
  }
  command.items = following.items;
  return true;
}

}  // namespace td::designer
