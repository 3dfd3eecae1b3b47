// A modal dialog of named controls, without behaviour of its own.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/print_surface.h"

namespace td {

// What a dialog calls back, on the same thread. A failure that leaves a callback inside ShowModal
// leaves ShowModal.
struct DialogEvents {
  std::function<void()> Load;  // before it becomes visible
  // A button was pressed, or a list got a selection, by the user or by PutListIndex.
  std::function<void(std::string_view control)> Click;
  std::function<void()> Unload;  // once, whichever way it closes
};

// Controls are named as the logic names them. Text boxes start empty, check boxes at 0, lists and
// option groups with no selection (-1). All of them can be read after the dialog was closed.
class Dialog {
 public:
  virtual ~Dialog() = default;

  virtual void Connect(DialogEvents events) = 0;

  // Loads the dialog, shows it and returns when it was closed.
  virtual void ShowModal() = 0;
  // Closes the dialog. Closing it twice is no error.
  virtual void Unload() = 0;

  // A hidden surface, for its list of installed printers only.
  virtual PrintSurface& Surface() = 0;

  virtual std::string Text(std::string_view textBox) = 0;
  virtual void PutText(std::string_view textBox, const std::string& text) = 0;

  virtual int CheckValue(std::string_view checkBox) = 0;
  virtual void PutCheckValue(std::string_view checkBox, int value) = 0;

  // The option of a group that is on, or -1. Putting an option that the group does not have fails
  // with kNoSuchOption.
  virtual int Option(std::string_view group) = 0;
  virtual void PutOption(std::string_view group, int index) = 0;

  virtual void ClearList(std::string_view list) = 0;
  virtual void AddItem(std::string_view list, const std::string& text) = 0;
  virtual int ListCount(std::string_view list) = 0;
  virtual std::string ListItem(std::string_view list, int index) = 0;
  virtual int ListIndex(std::string_view list) = 0;
  // Selects an entry and fires Click of the list.
  virtual void PutListIndex(std::string_view list, int index) = 0;
  // The text of the selected entry, empty when there is none.
  virtual std::string ListText(std::string_view list) = 0;
};

}  // namespace td
