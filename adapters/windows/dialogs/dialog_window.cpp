#include "windows/dialogs/dialog_window.h"

#include <algorithm>
#include <array>
#include <utility>

#include "dialogs/field_texts.h"
#include "platform/standard_failures.h"
#include "windows/api/wide_text.h"
#include "windows/controls/modal_loop.h"
#include "windows/controls/text_fitting.h"

namespace td {
namespace {

constexpr UINT kTellChoices = WM_APP + 1;

// Pixels, however fine the monitor is: the edges of a box, within which its text stays above.
constexpr int kAroundFieldText = 4;

// Pixels at 96 dots per inch.
constexpr int kMargin = 11;
constexpr int kRoom = 12;      // between fields, what lies below them, and buttons
constexpr int kSmallRoom = 6;  // within these
constexpr int kButtonWidth = 76;
constexpr int kAroundButtonCaption = 5;   // above and below
constexpr int kBesideButtonCaption = 12;  // on both sides
constexpr int kBeforeCaption = 20;        // the mark of an option or a check box

std::wstring WithoutAccessMark(std::wstring caption) {
  std::erase(caption, L'&');
  return caption;
}

}  // namespace

DialogWindow::DialogWindow(const DialogContents& contents, DialogWindowEvents events)
    : DialogFrame(contents.title), contents_(contents), events_(std::move(events)) {
  for (const DialogField& field : contents.fields) {
    std::visit([&](const auto& kind) { AddField(kind); }, field);
  }
  if (contents.options != nullptr) AddOptions(*contents.options);
  DWORD group = WS_GROUP;
  for (const CaptionedControl& box : contents.checkBoxes) {
    AddNamed(control_kinds::kCheckBox, box.name, box.caption, std::exchange(group, 0));
  }
  AddNamed(control_kinds::kDefaultButton, contents.confirm.name, contents.confirm.caption,
           WS_GROUP);
  AddNamed(control_kinds::kButton, contents.leave.name, contents.leave.caption);
  SendMessageW(Window(), DM_SETDEFID,
               static_cast<WPARAM>(GetDlgCtrlID(Button(contents.confirm.name))), 0);
}

HWND DialogWindow::AddNamed(const ControlKind& kind, std::string_view name, const char* caption,
                            DWORD moreStyle) {
  const int id = kFirstControl + static_cast<int>(controls_.size());
  const HWND control = Add(kind, caption, id, moreStyle);
  controls_.push_back({&kind, name, control});
  return control;
}

void DialogWindow::AddField(const ListField& field) {
  FieldRow row;
  row.label = Add(control_kinds::kLabelAtRight, field.label);
  row.field = AddNamed(control_kinds::kList, field.name, "");
  row.list = &lists_.try_emplace(field.name, row.field).first->second;
  rows_.push_back(row);
}

void DialogWindow::AddField(const NumberField& field) {
  FieldRow row;
  row.label = Add(control_kinds::kLabelAtRight, field.label);
  row.field = AddNamed(control_kinds::kTextBox, field.name, "");
  KeepInputMethodFrom(row.field);
  row.unit = Add(control_kinds::kLabel, field.unit);
  if (std::string_view(field.unit) == kTwipsUnit) row.note = Add(control_kinds::kLabel, "");
  row.hint = Add(control_kinds::kLabel, field.hint);
  rows_.push_back(row);
}

// Tab reaches the option that is on, or the first if none is, and puts none on by itself.
void DialogWindow::AddOptions(const OptionGroup& group) {
  optionFrame_ = Add(control_kinds::kFrame, group.title, 0, WS_GROUP);
  DWORD first = WS_GROUP | WS_TABSTOP;
  for (const char* caption : group.captions) {
    const HWND option =
        AddNamed(control_kinds::kOption, group.name, caption, std::exchange(first, 0));
    SendMessageW(option, BM_SETDONTCLICK, TRUE, 0);
    options_.push_back(option);
  }
}

HWND DialogWindow::Find(const ControlKind& kind, std::string_view name) const {
  const auto found = std::ranges::find_if(controls_, [&](const NamedControl& control) {
    return control.kind == &kind && control.name == name;
  });
  if (Window() == nullptr || found == controls_.end()) throw InvalidCallFailure();
  return found->window;
}

ChoiceList& DialogWindow::List(std::string_view name) {
  const auto found = lists_.find(name);
  if (Window() == nullptr || found == lists_.end()) throw InvalidCallFailure();
  return found->second;
}

HWND DialogWindow::TextBox(std::string_view name) const {
  return Find(control_kinds::kTextBox, name);
}

HWND DialogWindow::CheckBox(std::string_view name) const {
  return Find(control_kinds::kCheckBox, name);
}

HWND DialogWindow::Button(std::string_view name) const {
  const bool isDefault = name == contents_.confirm.name;
  return Find(isDefault ? control_kinds::kDefaultButton : control_kinds::kButton, name);
}

const std::vector<HWND>& DialogWindow::Options(std::string_view group) const {
  (void)Find(control_kinds::kOption, group);
  return options_;
}

void DialogWindow::Commanded(int id, int notification) {
  const std::size_t index = static_cast<std::size_t>(id) - kFirstControl;
  if (id < kFirstControl || index >= controls_.size()) return;
  const NamedControl& control = controls_[index];
  if (control.kind == &control_kinds::kList) {
    if (!List(control.name).Notified(notification)) return;
    if (std::ranges::find(chosen_, control.name) != chosen_.end()) return;
    chosen_.push_back(control.name);
    PostMessageW(Window(), kTellChoices, 0, 0);
  } else if (control.kind == &control_kinds::kTextBox) {
    const auto row = std::ranges::find(rows_, control.window, &FieldRow::field);
    if (notification == EN_CHANGE && row != rows_.end()) ShowNote(*row);
  } else if (control.kind == &control_kinds::kButton ||
             control.kind == &control_kinds::kDefaultButton) {
    if (notification != BN_CLICKED) return;
    TellChoices();
    events_.clicked(control.name);
  }
}

void DialogWindow::ShowNote(const FieldRow& row) const {
  if (row.note == nullptr) return;
  SetWindowTextW(row.note, ToWide(NoteOfLength(FromWide(TextOf(row.field)))).c_str());
}

// Told when the list has done with the choice, and each once.
void DialogWindow::TellChoices() {
  while (!chosen_.empty()) {
    const std::string_view list = chosen_.front();
    chosen_.erase(chosen_.begin());
    events_.clicked(list);
  }
}

bool DialogWindow::Received(UINT message, WPARAM, LPARAM lengthy, LRESULT& result) {
  switch (message) {
    case kTellChoices:
      TellChoices();
      return true;
    case WM_DRAWITEM:
      ChoiceList::Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lengthy));
      result = TRUE;
      return true;
    default:
      return false;
  }
}

SIZE DialogWindow::CaptionedSize(HWND control, int besideCaption) const {
  const SIZE caption = TextSize(Font(), WithoutAccessMark(TextOf(control)));
  return {caption.cx + Scaled(besideCaption), caption.cy + Scaled(kSmallRoom)};
}

// Options in their frame at the left, check boxes at the right. Returns where both end.
int DialogWindow::PlaceOptions(const RECT& place) {
  const int half = (place.right - place.left - Scaled(kRoom)) / 2;
  const int line = CaptionedSize(optionFrame_, 0).cy;
  const int inset = Scaled(kRoom);
  int optionTop = place.top + line;
  for (const HWND option : options_) {
    MoveWindow(option, place.left + inset, optionTop, half - 2 * inset, line, TRUE);
    optionTop += line;
  }
  int boxTop = place.top + Scaled(kSmallRoom);
  for (const CaptionedControl& box : contents_.checkBoxes) {
    MoveWindow(CheckBox(box.name), place.right - half, boxTop, half, line, TRUE);
    boxTop += line + Scaled(kSmallRoom) / 2;
  }
  const int end = std::max(optionTop + Scaled(kSmallRoom), boxTop);
  MoveWindow(optionFrame_, place.left, place.top, half, end - place.top, TRUE);
  return end;
}

SIZE DialogWindow::LayOut() {
  const int margin = Scaled(kMargin);
  const int line = TextSize(Font(), L"套").cy;
  const GridMeasures measures{line + 2 * kAroundFieldText, Scaled(kSmallRoom), Scaled(kSmallRoom)};
  int half = 0;
  for (const HWND option : options_) {
    half = std::max<int>(half, CaptionedSize(option, kBeforeCaption).cx + 2 * Scaled(kRoom));
  }
  for (const CaptionedControl& box : contents_.checkBoxes) {
    half = std::max<int>(half, CaptionedSize(CheckBox(box.name), kBeforeCaption).cx);
  }
  const int width =
      std::max(GridWidth(rows_, Font(), measures), options_.empty() ? 0 : 2 * half + Scaled(kRoom));
  int bottom = PlaceGrid(rows_, Font(), measures, {margin, margin}, width) + Scaled(kRoom);
  if (optionFrame_ != nullptr) {
    bottom = PlaceOptions({margin, bottom, margin + width, bottom}) + Scaled(kRoom);
  }
  const int buttonHeight = line + 2 * Scaled(kAroundButtonCaption);
  int right = margin + width;
  for (const CaptionedControl& button : {contents_.leave, contents_.confirm}) {
    const HWND control = Button(button.name);
    const int needed = CaptionedSize(control, 2 * kBesideButtonCaption).cx;
    const int buttonWidth = std::max(Scaled(kButtonWidth), needed);
    MoveWindow(control, right - buttonWidth, bottom, buttonWidth, buttonHeight, TRUE);
    right -= buttonWidth + Scaled(kSmallRoom);
  }
  return {width + 2 * margin, bottom + buttonHeight + margin};
}

}  // namespace td
