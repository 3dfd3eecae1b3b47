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

INPUT KeyInput(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

INPUT CharacterInput(wchar_t character, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = static_cast<WORD>(character);
  input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
  return input;
}

// At a place of the screen: each event bears it, as the pointer may be moved by others meanwhile.
INPUT MouseInput(DWORD flags, POINT place) {
  constexpr int kWholeScreen = 65536;
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = MulDiv(2 * place.x + 1, kWholeScreen, 2 * GetSystemMetrics(SM_CXSCREEN));
  input.mi.dy = MulDiv(2 * place.y + 1, kWholeScreen, 2 * GetSystemMetrics(SM_CYSCREEN));
  input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
  return input;
}

template <std::size_t count>
void Send(std::array<INPUT, count> inputs) {
  SendInput(static_cast<UINT>(count), inputs.data(), sizeof(INPUT));
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

void DialogUser::TakeForeground() const {
  EXPECT_TRUE(WaitFor([this] {
    if (IsWindowEnabled(dialog_) == FALSE) return false;
    if (GetForegroundWindow() == dialog_ && FocusedControl() != nullptr) return true;
    SetForegroundWindow(dialog_);
    return false;
  })) << "the dialog does not get the keyboard";
}

void DialogUser::ClickAt(HWND control, POINT inside) const {
  TakeForeground();
  ClientToScreen(control, &inside);
  Send(
      std::array{MouseInput(MOUSEEVENTF_LEFTDOWN, inside), MouseInput(MOUSEEVENTF_LEFTUP, inside)});
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
  TakeForeground();
  const HWND control = Control(name, option);
  SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
  EXPECT_TRUE(WaitFor([&] { return FocusedControl() == control; })) << name;
}

void DialogUser::Press(WORD key, WORD modifier) {
  TakeForeground();
  if (modifier != 0) Send(std::array{KeyInput(modifier, 0)});
  Send(std::array{KeyInput(key, 0), KeyInput(key, KEYEVENTF_KEYUP)});
  if (modifier != 0) Send(std::array{KeyInput(modifier, KEYEVENTF_KEYUP)});
}

void DialogUser::Type(std::string_view box, const std::string& text) {
  const HWND control = Control(box);
  ClickAt(control, Middle(control));
  EXPECT_TRUE(WaitFor([&] { return FocusedControl() == control; })) << box;
  Press(VK_HOME);
  Press(VK_END, VK_SHIFT);
  Press(VK_DELETE);
  for (const wchar_t character : ToWide(text)) {
    Send(std::array{CharacterInput(character, 0), CharacterInput(character, KEYEVENTF_KEYUP)});
  }
  EXPECT_TRUE(WaitFor([&] { return Text(box) == text; })) << box << ": " << Text(box);
}

void DialogUser::OpenList(std::string_view list) {
  SetCursorPos(0, 0);  // an opened list follows a pointer that happens to lie over it
  std::chrono::steady_clock::time_point pressed;
  EXPECT_TRUE(WaitFor([&] {
    if (IsOpened(list)) return true;
    const auto now = std::chrono::steady_clock::now();
    if (now - pressed < std::chrono::seconds(3)) return false;
    pressed = now;
    Focus(list);
    Press(VK_DOWN, VK_MENU);
    return false;
  })) << list;
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
  TakeForeground();
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
