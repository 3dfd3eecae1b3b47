// A drop-down list whose entries may be longer than it is wide.
#pragma once

#include <string>
#include <vector>

#include "windows/api/windows_api.h"
#include "windows/controls/dialog_frame.h"

namespace td {

namespace control_kinds {

inline constexpr ControlKind kList{
    L"ComboBox", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS};

}  // namespace control_kinds

// A long entry is shown with its middle left out, as names of printers differ at both ends; it can
// be read whole in a tooltip and in the opened list. An entry of nothing but hyphens is drawn as a
// line, and can be chosen all the same.
class ChoiceList {
 public:
  // `control` is of the kind above. Its dialog calls Draw and Notified.
  explicit ChoiceList(HWND control);

  void Clear();
  // Selects nothing.
  void Add(const std::string& text);
  [[nodiscard]] int Count() const { return static_cast<int>(entries_.size()); }
  [[nodiscard]] const std::string& Entry(int index) const;
  [[nodiscard]] int Selected() const;  // -1 for none
  void Select(int index);

  // Puts the list into a place, whose height is that of the closed list. To be called after each
  // change of the font, too.
  void Place(const RECT& place, int padding);
  // For WM_DRAWITEM.
  static void Draw(const DRAWITEMSTRUCT& item);

  // For a notification of the control. True if the user has chosen an entry by it, be it the one
  // that was selected already; the system may tell of one choice twice. An opened list that is left
  // without a choice keeps what it had.
  [[nodiscard]] bool Notified(int notification);

 private:
  void WidenOpened(int padding) const;
  void TellWholeEntry();
  [[nodiscard]] bool IsSameEntryChosen() const;

  HWND control_;
  HWND tooltip_;
  std::vector<std::string> entries_;
  bool isOpen_ = false;
  int selectedBefore_ = -1;  // when it was opened
};

}  // namespace td
