#include "dialog_user.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <utility>

#include "windows/api/wide_text.h"

namespace td {
namespace {

constexpr int kFirstControl = 100;

// The names of the controls in the order of the Tab key, one for each option.
std::vector<std::string_view> ControlNames(const DialogContents& contents) {
  std::vector<std::string_view> names;
  for (const DialogField& field : contents.fields) {
    std::visit([&](const auto& kind) { names.emplace_back(kind.name); }, field);
  }
  if (contents.options != nullptr) {
    names.insert(names.end(), contents.options->captions.size(), contents.options->name);
  }
  for (const CaptionedControl& box : contents.checkBoxes) names.emplace_back(box.name);
  names.emplace_back(contents.confirm.name);
  names.emplace_back(contents.leave.name);
  return names;
}

void HoldShift(bool isHeld) {
  std::array<BYTE, 256> keys{};
  GetKeyboardState(keys.data());
  keys[VK_SHIFT] = isHeld ? 0x80 : 0;
  SetKeyboardState(keys.data());
}

std::wstring WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1,
                    L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

std::wstring EntryText(HWND list, int index) {
  const auto entry = static_cast<WPARAM>(index);
  const LRESULT length = SendMessageW(list, CB_GETLBTEXTLEN, entry, 0);
  if (length < 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  SendMessageW(list, CB_GETLBTEXT, entry, reinterpret_cast<LPARAM>(text.data()));
  text.pop_back();
  return text;
}

BOOL CALLBACK AddIfShown(HWND window, LPARAM found) {
  if (IsWindowVisible(window) != FALSE) {
    reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
  }
  return TRUE;
}

POINT Middle(HWND control) {
  RECT place{};
  GetClientRect(control, &place);
  return {place.right / 2, place.bottom / 2};
}

}  // namespace

bool WaitFor(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

std::vector<HWND> ShownWindows(DWORD thread) {
  std::vector<HWND> windows;
  EnumThreadWindows(thread, AddIfShown, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

HWND DialogUser::Control(std::string_view name, int option) const {
  const std::vector<std::string_view> names = ControlNames(contents_);
  const auto found = std::ranges::find(names, name);
  if (found == names.end()) ADD_FAILURE() << name;
  return GetDlgItem(dialog_, kFirstControl + static_cast<int>(found - names.begin()) + option);
}

HWND DialogUser::FocusedControl() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(thread_, &info);
  return info.hwndFocus;
}

void DialogUser::WaitUntilReady() const {
  EXPECT_TRUE(WaitFor([this] {
    if (IsWindowEnabled(dialog_) == FALSE) return false;
    if (IsChild(dialog_, FocusedControl()) != FALSE) return true;
    SetForegroundWindow(dialog_);
    return false;
  })) << "the dialog does not get the focus";
}

void DialogUser::ClickAt(HWND control, POINT inside) const {
  WaitUntilReady();
  const LPARAM place = MAKELPARAM(inside.x, inside.y);
  PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, place);
  PostMessageW(control, WM_LBUTTONUP, 0, place);
}

void DialogUser::Click(std::string_view name, int option) {
  const HWND control = Control(name, option);
  const bool wasChecked = IsChecked(name, option);
  const LONG_PTR kind = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
  const POINT middle = Middle(control);
  ClickAt(control, {middle.y, middle.y});
  if (kind == BS_AUTOCHECKBOX) {
    EXPECT_TRUE(WaitFor([&] { return IsChecked(name, option) != wasChecked; })) << name;
  } else if (kind == BS_AUTORADIOBUTTON) {
    EXPECT_TRUE(WaitFor([&] { return IsChecked(name, option); })) << name;
  }
}

void DialogUser::Focus(std::string_view name, int option) {
  WaitUntilReady();
  const HWND control = Control(name, option);
  SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
  EXPECT_TRUE(WaitFor([&] { return FocusedControl() == control; })) << name;
}

void DialogUser::PostKey(UINT down, UINT up, WPARAM key, LPARAM context) const {
  WaitUntilReady();
  const HWND control = FocusedControl();
  const auto scanCode =
      static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC));
  const LPARAM details = 1 | scanCode << 16 | context;
  PostMessageW(control, down, key, details);
  PostMessageW(control, up, key, details | static_cast<LPARAM>(0xC0000000));
}

void DialogUser::Press(WPARAM key) {
  PostKey(WM_KEYDOWN, WM_KEYUP, key, 0);
}

void DialogUser::PressWithAlt(WPARAM key) {
  constexpr LPARAM kAltIsHeld = 1 << 29;
  PostKey(WM_SYSKEYDOWN, WM_SYSKEYUP, key, kAltIsHeld);
}

void DialogUser::PressShiftTab() {
  const HWND before = FocusedControl();
  const DWORD self = GetCurrentThreadId();
  ASSERT_TRUE(AttachThreadInput(self, thread_, TRUE)) << "to share the state of its keys";
  HoldShift(true);
  Press(VK_TAB);
  EXPECT_TRUE(WaitFor([&] { return FocusedControl() != before; }));
  HoldShift(false);
  AttachThreadInput(self, thread_, FALSE);
}

void DialogUser::Type(std::string_view box, const std::string& text) {
  const HWND control = Control(box);
  ClickAt(control, Middle(control));
  EXPECT_TRUE(WaitFor([&] { return FocusedControl() == control; })) << box;
  PostMessageW(control, EM_SETSEL, 0, -1);
  Press(VK_DELETE);
  for (const wchar_t character : ToWide(text)) PostMessageW(control, WM_CHAR, character, 1);
  EXPECT_TRUE(WaitFor([&] { return Text(box) == text; })) << box << ": " << Text(box);
}

void DialogUser::OpenList(std::string_view list) {
  Focus(list);
  PressWithAlt(VK_DOWN);
  EXPECT_TRUE(WaitFor([&] { return IsOpened(list); })) << list;
}

void DialogUser::Choose(std::string_view list, const std::string& entry) {
  const std::vector<std::string> entries = Entries(list);
  const auto found = std::ranges::find(entries, entry);
  ASSERT_NE(found, entries.end()) << list << " has no " << entry;
  OpenList(list);
  Press(VK_HOME);
  for (auto passed = entries.begin(); passed != found; ++passed) Press(VK_DOWN);
  Press(VK_RETURN);
  EXPECT_TRUE(WaitFor([&] { return !IsOpened(list) && SelectedText(list) == entry; })) << list;
}

void DialogUser::ClickEntry(std::string_view list, int index) {
  const HWND control = Control(list);
  ClickAt(control, Middle(control));
  ASSERT_TRUE(WaitFor([&] { return IsOpened(list); })) << list;
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(control, &parts);
  const auto line = static_cast<LONG>(SendMessageW(control, CB_GETITEMHEIGHT, 0, 0));
  ClickAt(parts.hwndList, {line, index * line + line / 2});
  EXPECT_TRUE(WaitFor([&] { return !IsOpened(list) && Selected(list) == index; })) << list;
}

void DialogUser::TurnWheelOver(std::string_view name) {
  WaitUntilReady();
  POINT middle = Middle(Control(name));
  ClientToScreen(Control(name), &middle);
  PostMessageW(Control(name), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA),
               MAKELPARAM(middle.x, middle.y));
}

std::string DialogUser::Text(std::string_view box) const {
  return FromWide(WindowText(Control(box)));
}

std::vector<std::string> DialogUser::Entries(std::string_view list) const {
  const HWND control = Control(list);
  const auto count = static_cast<int>(SendMessageW(control, CB_GETCOUNT, 0, 0));
  std::vector<std::string> entries;
  for (int i = 0; i < count; ++i) entries.push_back(FromWide(EntryText(control, i)));
  return entries;
}

int DialogUser::Selected(std::string_view list) const {
  return static_cast<int>(SendMessageW(Control(list), CB_GETCURSEL, 0, 0));
}

std::string DialogUser::SelectedText(std::string_view list) const {
  return FromWide(EntryText(Control(list), Selected(list)));
}

bool DialogUser::IsOpened(std::string_view list) const {
  return SendMessageW(Control(list), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

bool DialogUser::IsChecked(std::string_view name, int option) const {
  return SendMessageW(Control(name, option), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

}  // namespace td
