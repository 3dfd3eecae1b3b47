#include "windows/system/windows_dialog.h"

#include <algorithm>

#include "platform/standard_failures.h"
#include "windows/api/wide_text.h"
#include "windows/controls/text_fitting.h"
#include "windows/system/message_boxes.h"

namespace td {
namespace {

bool IsChecked(HWND button) {
  return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void PutChecked(HWND button, bool isChecked) {
  SendMessageW(button, BM_SETCHECK, isChecked ? BST_CHECKED : BST_UNCHECKED, 0);
}

}  // namespace

DialogWindow& WindowsDialog::Window() {
  if (window_) return *window_;
  if (!HasVisibleDesktop()) {
    throw Failure(kInvalidCall,
                  "没有可用的显示，无法打开“" + std::string(contents_.title) + "”窗口。");
  }
  const auto click = [this](std::string_view control) {
    if (events_.Click && !isUnloaded_) events_.Click(control);
  };
  window_ = std::make_unique<DialogWindow>(
      contents_, DialogWindowEvents{.clicked = click, .closed = [this] { Unload(); }});
  return *window_;
}

void WindowsDialog::ShowModal() {
  DialogWindow& window = Window();
  if (events_.Load) events_.Load();
  try {
    if (!isUnloaded_) window.ShowModal();
  } catch (...) {
    Unload();
    throw;
  }
  // The window may end by itself: when the program quits.
  Unload();
}

void WindowsDialog::Unload() {
  if (isUnloaded_) return;
  isUnloaded_ = true;
  if (window_) window_->Close();
  if (events_.Unload) events_.Unload();
}

std::string WindowsDialog::Text(std::string_view textBox) {
  return FromWide(TextOf(Window().TextBox(textBox)));
}

void WindowsDialog::PutText(std::string_view textBox, const std::string& text) {
  SetWindowTextW(Window().TextBox(textBox), ToWide(text).c_str());
}

int WindowsDialog::CheckValue(std::string_view checkBox) {
  return IsChecked(Window().CheckBox(checkBox)) ? 1 : 0;
}

void WindowsDialog::PutCheckValue(std::string_view checkBox, int value) {
  PutChecked(Window().CheckBox(checkBox), value != 0);
}

int WindowsDialog::Option(std::string_view group) {
  const auto& options = Window().Options(group);
  const auto on = std::ranges::find_if(options, IsChecked);
  return on == options.end() ? -1 : static_cast<int>(on - options.begin());
}

void WindowsDialog::PutOption(std::string_view group, int index) {
  const auto& options = Window().Options(group);
  if (index < 0 || static_cast<std::size_t>(index) >= options.size()) {
    throw Failure(kNoSuchOption, "选项按钮 " + std::to_string(index) + " 不存在");
  }
  for (std::size_t i = 0; i < options.size(); ++i) {
    PutChecked(options[i], i == static_cast<std::size_t>(index));
  }
}

void WindowsDialog::ClearList(std::string_view list) {
  Window().List(list).Clear();
}

void WindowsDialog::AddItem(std::string_view list, const std::string& text) {
  Window().List(list).Add(text);
}

int WindowsDialog::ListCount(std::string_view list) {
  return Window().List(list).Count();
}

std::string WindowsDialog::ListItem(std::string_view list, int index) {
  return Window().List(list).Entry(index);
}

int WindowsDialog::ListIndex(std::string_view list) {
  return Window().List(list).Selected();
}

void WindowsDialog::PutListIndex(std::string_view list, int index) {
  Window().List(list).Select(index);
  if (events_.Click) events_.Click(list);
}

std::string WindowsDialog::ListText(std::string_view list) {
  const ChoiceList& control = Window().List(list);
  const int selected = control.Selected();
  return selected < 0 ? std::string() : control.Entry(selected);
}

}  // namespace td
