#include "windows/preview/preview_window.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "text/page_text.h"
#include "windows/api/wide_text.h"
#include "windows/controls/control_making.h"
#include "windows/controls/text_fitting.h"
#include "windows/controls/visual_styles.h"
#include "windows/controls/window_font.h"
#include "windows/frame_layout.h"
#include "windows/preview/screen_reader_name.h"
#include "windows/render/font_table.h"

namespace td {
namespace {

constexpr UINT kActivated = WM_APP;
constexpr UINT_PTR kFocusTimer = 1;

// The same font in the family that stands for a name of a stored format.
FontOwner InFamilyOf(const std::string& name, HFONT font) {
  LOGFONTW wanted{};
  GetObjectW(font, sizeof wanted, &wanted);
  const auto families = FontTable::Instance().Families(name);
  if (!families.empty()) {
    const std::wstring& family = families.front()->name;
    const std::size_t length = family.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    wanted.lfFaceName[length] = L'\0';
    wanted.lfCharSet = DEFAULT_CHARSET;
  }
  return FontOwner(CreateFontIndirectW(&wanted));
}

// A window before an owner has no button in the task bar, from which it would come back.
DWORD StyleBefore(HWND owner) {
  constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
  return owner == nullptr ? kStyle : kStyle & ~static_cast<DWORD>(WS_MINIMIZEBOX);
}

}  // namespace

PreviewWindow::PreviewWindow(PageDocument& document, PreviewEvents events)
    : PreviewWindow(document, std::move(events), OwnerWindow()) {}

PreviewWindow::PreviewWindow(PageDocument& document, PreviewEvents events, HWND owner)
    : Window(kPreviewTitle, StyleBefore(owner), WS_EX_CONTROLPARENT, owner),
      document_(document),
      events_(std::move(events)),
      toolbar_(Handle(),
               [this](std::string_view key) {
                 SetFocus(view_.Handle());
                 Press(key);
               }),
      view_(
          document, [this](bool isLarger) { Zoom(isLarger); }, Handle()),
      heldInput_({.handle = [this] { return Handle(); },
                  .commandOf = [this](const MSG& message) { return CommandIn(message); },
                  .isEnabled = [this](const KeyCommand& command) { return IsEnabled(command); },
                  .obey = [this](const KeyCommand& command) { Obey(command); }}) {
  AddPageText();
  AddToolTips();
  KeepInputMethodFrom(view_.Handle());
  focused_ = view_.Handle();
  UseSensibleSize();
}

void PreviewWindow::AddPageText() {
  pageText_ = MakeControl(Handle(), WC_EDITW, kEmptyPageText,
                          WS_TABSTOP | ES_READONLY | ES_AUTOHSCROLL, 0, WS_EX_CLIENTEDGE);
  NameForScreenReaders(pageText_, kPageTextName);
}

void PreviewWindow::AddToolTips() {
  toolTips_ = MakeToolTips(Handle(), TTS_ALWAYSTIP);
  for (const ToolbarButton& button : kToolbarButtons) {
    AddToolTip(toolTips_, toolbar_.ButtonOf(button.key), button.toolTip);
  }
  AddToolTip(toolTips_, pageText_, kPageTextToolTip);
}

// The parts need the new fonts before the old ones go.
void PreviewWindow::UseResolution(int dotsPerInch) {
  dotsPerInch_ = dotsPerInch;
  FontOwner font = WindowFont(dotsPerInch);
  FontOwner pageFont = InFamilyOf("宋体", font.get());
  SendMessageW(pageText_, WM_SETFONT, reinterpret_cast<WPARAM>(pageFont.get()), TRUE);
  SendMessageW(toolTips_, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
  toolbar_.LayOut(dotsPerInch, font.get());
  font_.swap(font);
  pageFont_.swap(pageFont);
}

double PreviewWindow::PixelsPerTwip() const {
  return dotsPerInch_ / kTwipsPerInch;
}

SIZE PreviewWindow::PageTextSize() const {
  constexpr int kBesideText = 8;  // pixels at 96 dots per inch, for the frame and the room within
  constexpr auto kLastPage = std::numeric_limits<std::int16_t>::max();
  const SIZE reading = TextSize(pageFont_.get(), ToWide(kReadingText));
  const SIZE numbers = TextSize(pageFont_.get(), ToWide(PageText(kLastPage, kLastPage)));
  return {std::max(reading.cx, numbers.cx) + 2 * Scaled(kBesideText, dotsPerInch_),
          TextBoxHeight(pageFont_.get(), dotsPerInch_)};
}

// Large enough for most of a page and for all buttons, and smaller than the monitor.
void PreviewWindow::UseSensibleSize() {
  const DpiAwareness inPixelsOfTheMonitor;
  const HWND owner = GetWindow(Handle(), GW_OWNER);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : Handle(), MONITOR_DEFAULTTONEAREST),
                  &monitor);
  const RECT& room = monitor.rcWork;
  // There first, since its resolution decides about the rest.
  SetWindowPos(Handle(), nullptr, room.left, room.top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  UseResolution(static_cast<int>(GetDpiForWindow(Handle())));
  const auto part = [](LONG length) { return static_cast<int>(length) * 85 / 100; };
  const int besideToolbar = static_cast<int>(std::ceil(kTwipsBesideToolbarBand * PixelsPerTwip())) +
                            static_cast<int>(PageTextSize().cx);
  const int forButtons = static_cast<int>(toolbar_.NeededSize().cx) + besideToolbar;
  RECT outer{
      0, 0,
      std::max(std::min(part(room.right - room.left), Scaled(1100, dotsPerInch_)), forButtons),
      std::min(part(room.bottom - room.top), Scaled(900, dotsPerInch_))};
  AdjustWindowRectExForDpi(&outer, StyleBefore(owner), FALSE, WS_EX_CONTROLPARENT,
                           static_cast<UINT>(dotsPerInch_));
  const LONG width = std::min(outer.right - outer.left, room.right - room.left);
  const LONG height = std::min(outer.bottom - outer.top, room.bottom - room.top);
  SetWindowPos(Handle(), nullptr, (room.left + room.right - width) / 2,
               (room.top + room.bottom - height) / 2, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  view_.PutResolution(dotsPerInch_, [this] { LayOutParts(); });
}

void PreviewWindow::LayOutParts() {
  const double pixelsPerTwip = PixelsPerTwip();
  const auto pixels = [pixelsPerTwip](double twips) {
    return static_cast<int>(std::lround(twips * pixelsPerTwip));
  };
  const SIZE inner = InnerSize();
  const SIZE text = PageTextSize();
  const auto stripHeight = static_cast<int>(std::max(toolbar_.NeededSize().cy, text.cy));
  const FrameLayout layout = LayOutFrame({.innerWidth = inner.cx / pixelsPerTwip,
                                          .innerHeight = inner.cy / pixelsPerTwip,
                                          .stripTop = 0,
                                          .stripHeight = stripHeight / pixelsPerTwip,
                                          .pageBoxWidth = text.cx / pixelsPerTwip});
  Place(toolbar_.Handle(), 0, 0, std::max(0, pixels(layout.toolbarBandWidth)), stripHeight);
  Place(pageText_, pixels(layout.pageBoxLeft), (stripHeight - static_cast<int>(text.cy)) / 2,
        static_cast<int>(text.cx), static_cast<int>(text.cy));
  Place(view_.Handle(), pixels(layout.surfaceLeft), pixels(layout.surfaceTop),
        std::max(0, pixels(layout.surfaceWidth)), std::max(0, pixels(layout.surfaceHeight)));
  InvalidateRect(Handle(), nullptr, TRUE);
}

void PreviewWindow::ShowModal() {
  constexpr UINT kWaitForFocus = 300;  // milliseconds
  ModalLoop loop(Handle());
  loop_ = &loop;
  ShowWindow(Handle(), SW_SHOW);
  SetForegroundWindow(Handle());
  // Not every program may give its new window the focus; the first activation comes all the same.
  SetTimer(Handle(), kFocusTimer, kWaitForFocus, nullptr);
  loop.Run([this](MSG& message) { return Takes(message); });
  Close();
  loop_ = nullptr;
}

void PreviewWindow::Close() {
  if (loop_ != nullptr) loop_->End();
  if (Handle() != nullptr) ShowWindow(Handle(), SW_HIDE);
}

void PreviewWindow::EnableButton(std::string_view key, bool isEnabled) {
  const HWND button = toolbar_.ButtonOf(key);
  if (button == nullptr) return;
  const bool isShown = IsWindowVisible(Handle()) != FALSE;
  if (isEnabled && !toolbar_.IsEnabled(key) && isShown) heldInput_.TakePending();
  if (!isEnabled && GetFocus() == button) SetFocus(view_.Handle());
  toolbar_.Enable(key, isEnabled);
  UpdateWindow(button);
}

void PreviewWindow::PutPageText(const std::string& text) {
  PutTextInto(pageText_, text);
  UpdateWindow(pageText_);
}

void PreviewWindow::PutPointer(std::int32_t shape) {
  view_.PutPointer(shape == kWaitingPointer ? IDC_WAIT : IDC_ARROW);
}

// Called from the message loop, and the window is drawn before a long run begins.
void PreviewWindow::ReportActivation() {
  if (IsWindowVisible(Handle()) == FALSE) return;
  KillTimer(Handle(), kFocusTimer);
  wasActivated_ = true;
  RedrawWindow(Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  const DpiAwareness asTheProgram(programsAwareness_);
  events_.activated();
}

void PreviewWindow::Paint() {
  const Painting painting(Handle());
  FillRect(painting.Device(), &painting.Seen(), GetSysColorBrush(COLOR_3DFACE));
}

LRESULT PreviewWindow::Receive(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case kActivated:
      ReportActivation();
      return 0;
    case HeldInput::kDeliver:
      heldInput_.DeliverNext();
      return 0;
    case WM_TIMER:
      KillTimer(Handle(), kFocusTimer);
      if (!wasActivated_) ReportActivation();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(first) != WA_INACTIVE) {
        SetFocus(IsWindowEnabled(focused_) != FALSE ? focused_ : view_.Handle());
        PostMessageW(Handle(), kActivated, 0, 0);
      } else if (const HWND focus = GetFocus(); IsChild(Handle(), focus) != FALSE) {
        focused_ = focus;
      }
      return 0;
    case WM_CLOSE:
      events_.closed();
      return 0;
    case WM_SIZE:
      if (pageText_ != nullptr) LayOutParts();
      return 0;
    case WM_DPICHANGED: {
      const RECT& place = *reinterpret_cast<const RECT*>(second);
      UseResolution(LOWORD(first));
      view_.PutResolution(dotsPerInch_, [&] {
        SetWindowPos(Handle(), nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        LayOutParts();
      });
      return 0;
    }
    case WM_ERASEBKGND:
      return TRUE;
    case WM_PAINT:
      Paint();
      return 0;
    case WM_CTLCOLORSTATIC:  // a text that can only be read
      SetBkColor(reinterpret_cast<HDC>(first), GetSysColor(COLOR_WINDOW));
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    default:
      return Window::Receive(message, first, second);
  }
}

}  // namespace td
