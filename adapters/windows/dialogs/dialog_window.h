// The window of a dialog: its contents as controls, by name.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/dialog_contents.h"
#include "windows/controls/choice_list.h"
#include "windows/controls/dialog_frame.h"
#include "windows/dialogs/field_grid.h"

namespace td {

struct DialogWindowEvents {
  // The user pressed a button or chose an entry of a list, be it the one that was selected already.
  std::function<void(std::string_view control)> clicked;
  // The close box or Escape; the window is still open.
  std::function<void()> closed;
};

class DialogWindow : public DialogFrame {
 public:
  DialogWindow(const DialogContents& contents, DialogWindowEvents events);

  // The control of a name. Each fails with kInvalidCall when there is none of that name and kind,
  // and when the window was destroyed.
  [[nodiscard]] ChoiceList& List(std::string_view name);
  [[nodiscard]] HWND TextBox(std::string_view name) const;
  [[nodiscard]] HWND CheckBox(std::string_view name) const;
  [[nodiscard]] HWND Button(std::string_view name) const;
  [[nodiscard]] const std::vector<HWND>& Options(std::string_view group) const;

 protected:
  SIZE LayOut() override;
  void Commanded(int id, int notification) override;
  void CloseAsked() override { events_.closed(); }
  bool Received(UINT message, WPARAM wide, LPARAM lengthy, LRESULT& result) override;

 private:
  struct NamedControl {
    const ControlKind* kind;
    std::string_view name;
    HWND window;
  };

  HWND AddNamed(const ControlKind& kind, std::string_view name, const char* caption,
                DWORD moreStyle = 0);
  void AddField(const ListField& field);
  void AddField(const NumberField& field);
  void AddOptions(const OptionGroup& group);
  void ShowNote(const FieldRow& row) const;
  void TellChoices();
  [[nodiscard]] HWND Find(const ControlKind& kind, std::string_view name) const;
  [[nodiscard]] SIZE CaptionedSize(HWND control, int besideCaption) const;
  [[nodiscard]] int PlaceOptions(const RECT& place);

  const DialogContents& contents_;
  DialogWindowEvents events_;
  std::vector<NamedControl> controls_;  // the id of each is kFirstControl and its place here
  std::vector<FieldRow> rows_;
  std::map<std::string_view, ChoiceList> lists_;
  std::vector<std::string_view> chosen_;  // lists whose choice is still to be told
  HWND optionFrame_ = nullptr;
  std::vector<HWND> options_;
};

}  // namespace td
