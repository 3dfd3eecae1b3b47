#include "windows/preview/toolbar.h"

#include <commctrl.h>

#include <algorithm>

#include "preview/toolbar_icons.h"
#include "windows/api/wide_text.h"
#include "windows/controls/control_making.h"
#include "windows/controls/text_fitting.h"
#include "windows/controls/visual_styles.h"
#include "windows/preview/toolbar_icons.h"

namespace td {
namespace {

// Pixels at 100 percent.
constexpr int kEdge = 3;        // around all buttons
constexpr int kInset = 6;       // from a button's edge to what it shows
constexpr int kBesideIcon = 5;  // between image and caption
constexpr int kSeparator = 9;   // with a line in its middle

constexpr COLORREF kHovered = RGB(209, 226, 242);
constexpr COLORREF kPressed = RGB(176, 206, 236);
constexpr COLORREF kHoveredEdge = RGB(122, 168, 214);
constexpr COLORREF kSeparatorLine = RGB(190, 190, 190);

}  // namespace

Toolbar::Toolbar(HWND parent, std::function<void(std::string_view key)> pressed)
    : Window(kToolbarName, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, parent),
      pressed_(std::move(pressed)) {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_.at(i) = MakeControl(Handle(), WC_BUTTONW, kToolbarButtons.at(i).caption,
                                 BS_OWNERDRAW | WS_TABSTOP, static_cast<int>(i));
    SetWindowSubclass(buttons_.at(i), Watched, 0, reinterpret_cast<DWORD_PTR>(this));
  }
}

void Toolbar::Enable(std::string_view key, bool isEnabled) {
  const HWND button = ButtonOf(key);
  if (button == nullptr) return;
  EnableWindow(button, isEnabled ? TRUE : FALSE);
  InvalidateRect(button, nullptr, TRUE);
}

bool Toolbar::IsEnabled(std::string_view key) const {
  return IsWindowEnabled(ButtonOf(key)) != FALSE;
}

std::string_view Toolbar::KeyOf(HWND button) const {
  const auto found = std::ranges::find(buttons_, button);
  if (button == nullptr || found == buttons_.end()) return {};
  return kToolbarButtons.at(static_cast<std::size_t>(found - buttons_.begin())).key;
}

HWND Toolbar::ButtonOf(std::string_view key) const {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    if (kToolbarButtons.at(i).key == key) return buttons_.at(i);
  }
  return nullptr;
}

void Toolbar::LayOut(int dotsPerInch, HFONT font) {
  dotsPerInch_ = dotsPerInch;
  font_ = font;
  const auto scaled = [dotsPerInch](int pixels) { return Scaled(pixels, dotsPerInch); };
  const int icon = scaled(kToolbarIconSize);
  int height = icon;
  for (const ToolbarButton& button : kToolbarButtons) {
    height = std::max(height, static_cast<int>(TextSize(font, ToWide(button.caption)).cy));
  }
  height += 2 * scaled(kInset);
  int left = scaled(kEdge);
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const ToolbarButton& button = kToolbarButtons.at(i);
    const int width = 2 * scaled(kInset) + icon + scaled(kBesideIcon) +
                      static_cast<int>(TextSize(font, ToWide(button.caption)).cx);
    Place(buttons_.at(i), left, scaled(kEdge), width, height);
    left += width;
    if (button.isLastOfGroup) left += scaled(kSeparator);
  }
  needed_ = {left + scaled(kEdge), height + 2 * scaled(kEdge)};
  InvalidateRect(Handle(), nullptr, TRUE);
}

LRESULT Toolbar::Receive(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_COMMAND:
      if (HIWORD(first) == BN_CLICKED) pressed_(KeyOf(reinterpret_cast<HWND>(second)));
      return 0;
    case WM_DRAWITEM:
      DrawButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
      return TRUE;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_PAINT:
      Paint();
      return 0;
    default:
      return Window::Receive(message, first, second);
  }
}

// The lines between the groups of buttons.
void Toolbar::Paint() {
  const Painting painting(Handle());
  FillRect(painting.Device(), &painting.Seen(), GetSysColorBrush(COLOR_3DFACE));
  for (std::size_t i = 0; i + 1 < buttons_.size(); ++i) {
    if (!kToolbarButtons.at(i).isLastOfGroup) continue;
    RECT box{};
    GetWindowRect(buttons_.at(i), &box);
    MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&box), 2);
    const int inset = Scaled(kInset, dotsPerInch_);
    const int left = static_cast<int>(box.right) + Scaled(kSeparator, dotsPerInch_) / 2;
    Fill(painting.Device(),
         {left, box.top + inset, left + std::max(1, Scaled(1, dotsPerInch_)), box.bottom - inset},
         kSeparatorLine);
  }
}

void Toolbar::DrawButton(const DRAWITEMSTRUCT& item) const {
  const bool isEnabled = (item.itemState & ODS_DISABLED) == 0;
  const bool isPressed = (item.itemState & ODS_SELECTED) != 0;
  const bool isHovered = isEnabled && item.hwndItem == hovered_;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_3DFACE));
  if (isHovered || isPressed) {
    Fill(item.hDC, item.rcItem, isPressed ? kPressed : kHovered);
    const BrushOwner edge(CreateSolidBrush(kHoveredEdge));
    FrameRect(item.hDC, &item.rcItem, edge.get());
  }
  const int icon = Scaled(kToolbarIconSize, dotsPerInch_);
  RECT square = item.rcItem;
  square.left += Scaled(kInset, dotsPerInch_);
  square.top += (item.rcItem.bottom - item.rcItem.top - icon) / 2;
  square.right = square.left + icon;
  square.bottom = square.top + icon;
  if (drawing_.IsOpen()) {
    DrawToolbarIcon(item.hDC, KeyOf(item.hwndItem), square, isEnabled);
  }
  const Selected font(item.hDC, font_);
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(isEnabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
  RECT caption = item.rcItem;
  caption.left = square.right + Scaled(kBesideIcon, dotsPerInch_);
  DrawTextW(item.hDC, TextOf(item.hwndItem).c_str(), -1, &caption,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP);
  if ((item.itemState & ODS_FOCUS) != 0) {
    RECT inner = item.rcItem;
    InflateRect(&inner, -Scaled(2, dotsPerInch_), -Scaled(2, dotsPerInch_));
    DrawFocusRect(item.hDC, &inner);
  }
}

void Toolbar::PutHovered(HWND button) {
  for (const HWND changed : {hovered_, button}) {
    if (changed != nullptr) InvalidateRect(changed, nullptr, TRUE);
  }
  hovered_ = button;
}

LRESULT CALLBACK Toolbar::Watched(HWND button, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                  DWORD_PTR context) {
  auto& toolbar = *reinterpret_cast<Toolbar*>(context);
  if (message == WM_MOUSEMOVE && toolbar.hovered_ != button) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, button, 0};
    TrackMouseEvent(&track);
    toolbar.PutHovered(button);
  } else if (message == WM_MOUSELEAVE && toolbar.hovered_ == button) {
    toolbar.PutHovered(nullptr);
  } else if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(button, Watched, 0);
  }
  return DefSubclassProc(button, message, first, second);
}

}  // namespace td
