#include "windows/controls/choice_list.h"

#include <algorithm>

#include "dialogs/field_texts.h"
#include "platform/standard_failures.h"
#include "windows/api/wide_text.h"
#include "windows/controls/control_making.h"
#include "windows/controls/text_fitting.h"
#include "windows/controls/visual_styles.h"

namespace td {
namespace {

constexpr int kBesideText = 2;      // pixels on each side at 96 dots per inch
constexpr int kMostOpenLines = 14;  // of the opened list; more are scrolled

int ScaledFor(HWND window, int pixels) {
  return Scaled(pixels, static_cast<int>(GetDpiForWindow(window)));
}

HFONT FontOf(HWND window) {
  return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
}

// What of a closed list shows the text.
RECT TextPlace(HWND list) {
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  GetComboBoxInfo(list, &info);
  return info.rcItem;
}

std::wstring EntryText(HWND list, UINT index) {
  const LRESULT length = SendMessageW(list, CB_GETLBTEXTLEN, index, 0);
  if (length == CB_ERR) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  SendMessageW(list, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
  text.pop_back();
  return text;
}

void DrawSeparator(const DRAWITEMSTRUCT& item, int color) {
  const int inset = ScaledFor(item.hwndItem, 4);
  const RECT& row = item.rcItem;
  const int middle = (row.top + row.bottom) / 2;
  const RECT line{row.left + inset, middle, row.right - inset, middle + 1};
  FillRect(item.hDC, &line, GetSysColorBrush(color));
}

}  // namespace

ChoiceList::ChoiceList(HWND control)
    : control_(control), tooltip_(MakeToolTips(GetParent(control))) {
  AddToolTip(tooltip_, control_, {});
}

void ChoiceList::Clear() {
  SendMessageW(control_, CB_RESETCONTENT, 0, 0);
  entries_.clear();
  TellWholeEntry();
}

void ChoiceList::Add(const std::string& text) {
  SendMessageW(control_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
  entries_.push_back(text);
}

const std::string& ChoiceList::Entry(int index) const {
  if (index < 0 || index >= Count()) throw InvalidCallFailure();
  return entries_[static_cast<std::size_t>(index)];
}

int ChoiceList::Selected() const {
  return static_cast<int>(SendMessageW(control_, CB_GETCURSEL, 0, 0));
}

void ChoiceList::Select(int index) {
  (void)Entry(index);
  SendMessageW(control_, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  TellWholeEntry();
}

void ChoiceList::Place(const RECT& place, int padding) {
  const LONG line = TextSize(FontOf(control_), L"套").cy + padding;
  const LONG height = place.bottom - place.top;
  SendMessageW(control_, CB_SETITEMHEIGHT, 0, line);
  WidenOpened();
  MoveWindow(control_, place.left, place.top, place.right - place.left,
             height + kMostOpenLines * line, TRUE);
  // The field is given its height by what the control adds to it.
  RECT closed{};
  GetWindowRect(control_, &closed);
  const LRESULT field = SendMessageW(control_, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
  SendMessageW(control_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1),
               field + height - (closed.bottom - closed.top));
  TellWholeEntry();
}

// Room for the longest entry, however narrow the closed list is.
void ChoiceList::WidenOpened() const {
  LONG needed = 0;
  for (const std::string& entry : entries_) {
    needed = std::max(needed, TextSize(FontOf(control_), ToWide(entry)).cx);
  }
  const int beside = GetSystemMetricsForDpi(SM_CXVSCROLL, GetDpiForWindow(control_)) +
                     4 * ScaledFor(control_, kBesideText);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(control_, MONITOR_DEFAULTTONEAREST), &monitor);
  const LONG most = monitor.rcWork.right - monitor.rcWork.left;
  const LONG width = std::min<LONG>(needed + beside, most);
  // Not every system takes the same width twice.
  if (SendMessageW(control_, CB_GETDROPPEDWIDTH, 0, 0) == width) return;
  SendMessageW(control_, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width), 0);
}

void ChoiceList::TellWholeEntry() {
  const int selected = Selected();
  std::string text = selected < 0 ? std::string() : Entry(selected);
  const RECT place = TextPlace(control_);
  const bool isWhole = TextSize(FontOf(control_), ToWide(text)).cx <=
                       place.right - place.left - 2 * ScaledFor(control_, kBesideText);
  if (isWhole) text.clear();
  PutToolTip(tooltip_, control_, text);
}

void ChoiceList::Draw(const DRAWITEMSTRUCT& item) {
  const bool isChosen = (item.itemState & ODS_SELECTED) != 0;
  const bool isDisabled = (item.itemState & ODS_DISABLED) != 0;
  const int usual = isDisabled ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT;
  const int color = isChosen ? COLOR_HIGHLIGHTTEXT : usual;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(isChosen ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  const std::wstring text = EntryText(item.hwndItem, item.itemID);
  if (IsSeparator(FromWide(text))) {
    DrawSeparator(item, isChosen ? COLOR_HIGHLIGHTTEXT : COLOR_GRAYTEXT);
  } else {
    RECT place = item.rcItem;
    InflateRect(&place, -ScaledFor(item.hwndItem, kBesideText), 0);
    const std::wstring shown = WithoutMiddle(item.hDC, text, place.right - place.left);
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(color));
    DrawTextW(item.hDC, shown.c_str(), -1, &place,
              DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_NOPREFIX);
  }
  constexpr UINT kFocusShown = ODS_FOCUS | ODS_NOFOCUSRECT;
  if ((item.itemState & kFocusShown) == ODS_FOCUS) DrawFocusRect(item.hDC, &item.rcItem);
}

bool ChoiceList::Notified(int notification) {
  switch (notification) {
    case CBN_DROPDOWN:
      isOpen_ = true;
      selectedBefore_ = Selected();
      WidenOpened();
      return false;
    case CBN_SELENDCANCEL:
      if (isOpen_) SendMessageW(control_, CB_SETCURSEL, static_cast<WPARAM>(selectedBefore_), 0);
      return false;
    case CBN_SELENDOK:
      return isOpen_ && (Selected() != selectedBefore_ || IsSameEntryChosen());
    case CBN_CLOSEUP:
      isOpen_ = false;
      TellWholeEntry();
      return false;
    case CBN_SELCHANGE:
      if (isOpen_) return false;
      TellWholeEntry();
      return true;
    default:
      return false;
  }
}

// Not if the list was only closed again: by a click on its closed part or by its keys.
bool ChoiceList::IsSameEntryChosen() const {
  const auto isDown = [](int key) { return GetKeyState(key) < 0; };
  if (isDown(VK_RETURN)) return true;
  if (isDown(VK_F4) || isDown(VK_MENU)) return false;
  const DWORD position = GetMessagePos();
  RECT closed{};
  GetWindowRect(control_, &closed);
  return PtInRect(&closed, {static_cast<short>(LOWORD(position)),
                            static_cast<short>(HIWORD(position))}) == FALSE;
}

}  // namespace td
