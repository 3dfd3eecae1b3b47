#include "windows/preview/page_view.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "preview/sheet_place.h"
#include "preview/toolbar_buttons.h"
#include "windows/controls/visual_styles.h"
#include "windows/render/page_painter.h"
#include "windows/render/screen_device.h"

namespace td {
namespace {

// Pixels at 100 percent.
constexpr int kDeskMargin = 16;  // of desk around the sheet
constexpr int kShadowWidth = 4;
constexpr int kLineStep = 40;  // of an arrow key

constexpr int kDeskRed = 142;
constexpr int kDeskGreen = 146;
constexpr int kDeskBlue = 151;

// The desk under so many layers of a shadow that takes a tenth of the light.
COLORREF DeskUnder(int layers) {
  const double light = std::pow(0.9, layers);
  const auto part = [light](int colour) { return static_cast<BYTE>(std::lround(colour * light)); };
  return RGB(part(kDeskRed), part(kDeskGreen), part(kDeskBlue));
}

}  // namespace

PageView::PageView(PageDocument& document, std::function<void(bool isLarger)> zoom, HWND parent)
    : Window(kPageViewName, WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_HSCROLL | WS_VSCROLL, 0,
             parent),
      document_(document),
      zoom_(std::move(zoom)),
      dotsPerInch_(static_cast<int>(GetDpiForWindow(Handle()))),
      pointer_(IDC_ARROW) {
  shownScale_ = PixelsPerTwip();
  FitScrollBars();
}

const Page* PageView::ShownPage() const {
  const auto number = static_cast<std::size_t>(document_.PreviewPage());
  return number <= document_.Pages().size() ? &document_.Pages()[number - 1] : nullptr;
}

double PageView::PixelsPerTwip() const {
  return dotsPerInch_ / kTwipsPerInch * document_.Zoom() / 100;
}

int PageView::DeskMargin() const {
  return Scaled(kDeskMargin, dotsPerInch_);
}

SCROLLINFO PageView::Bar(int bar) const {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(Handle(), bar, &info);
  return info;
}

int PageView::Last(int bar) const {
  const SCROLLINFO info = Bar(bar);
  return std::max(0, info.nMax - static_cast<int>(info.nPage) + 1);
}

POINT PageView::Scrolled() const {
  return {Bar(SB_HORZ).nPos, Bar(SB_VERT).nPos};
}

// The corner of the sheet is on whole pixels, so that its lines are as sharp as in an image of the
// page.
std::optional<RECT> PageView::SheetRect() const {
  const Page* page = ShownPage();
  if (page == nullptr || page->width <= 0 || page->height <= 0) return std::nullopt;
  const SIZE inner = InnerSize();
  const POINT scrolled = Scrolled();
  const auto place = [&](double twips, LONG room, LONG scrolledBy) {
    const double length = twips * shownScale_;
    const double start = std::round(
        SheetStart(length, static_cast<int>(room), DeskMargin(), static_cast<int>(scrolledBy)));
    return std::pair(static_cast<LONG>(start), static_cast<LONG>(std::lround(start + length)));
  };
  const auto [left, right] = place(page->width, inner.cx, scrolled.x);
  const auto [top, bottom] = place(page->height, inner.cy, scrolled.y);
  return RECT{left, top, right, bottom};
}

// A bar that comes takes room from the other direction, which may then need one, too.
void PageView::FitScrollBars() {
  if (isFitting_ || Handle() == nullptr) return;
  isFitting_ = true;
  const Page* page = ShownPage();
  const auto dpi = static_cast<UINT>(dotsPerInch_);
  const int upright = GetSystemMetricsForDpi(SM_CXVSCROLL, dpi);
  const int level = GetSystemMetricsForDpi(SM_CYHSCROLL, dpi);
  const double width = page == nullptr ? 0 : page->width * shownScale_;
  const double height = page == nullptr ? 0 : page->height * shownScale_;
  const SIZE outer = OuterSize();
  const int roomX = static_cast<int>(outer.cx);
  const int roomY = static_cast<int>(outer.cy);
  bool isLevelNeeded = ScrollEnd(width, roomX, DeskMargin()) > 0;
  const bool isUprightNeeded =
      ScrollEnd(height, roomY - (isLevelNeeded ? level : 0), DeskMargin()) > 0;
  isLevelNeeded = ScrollEnd(width, roomX - (isUprightNeeded ? upright : 0), DeskMargin()) > 0;
  const auto fit = [this](int bar, double length, int room) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nPage = static_cast<UINT>(std::max(room, 1));
    const int end = ScrollEnd(length, room, DeskMargin());
    info.nMax = end > 0 ? end + std::max(room, 1) - 1 : 0;
    SetScrollInfo(Handle(), bar, &info, TRUE);
  };
  fit(SB_HORZ, width, roomX - (isUprightNeeded ? upright : 0));
  fit(SB_VERT, height, roomY - (isLevelNeeded ? level : 0));
  isFitting_ = false;
}

void PageView::Scroll(int bar, int position) {
  const int wanted = std::clamp(position, 0, Last(bar));
  if (wanted == Bar(bar).nPos) return;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS;
  info.nPos = wanted;
  SetScrollInfo(Handle(), bar, &info, TRUE);
  InvalidateRect(Handle(), nullptr, FALSE);
}

void PageView::ScrollPage(bool isDown) {
  const auto page = static_cast<int>(Bar(SB_VERT).nPage);
  ScrollBy(SB_VERT, isDown ? page : -page);
}

void PageView::ScrollLine(int bar, bool isForward) {
  const int step = Scaled(kLineStep, dotsPerInch_);
  ScrollBy(bar, isForward ? step : -step);
}

void PageView::ScrollTo(Part part) {
  Scroll(SB_VERT, part == Part::kStart ? 0 : Last(SB_VERT));
}

bool PageView::IsAt(Part part) const {
  return Bar(SB_VERT).nPos == (part == Part::kStart ? 0 : Last(SB_VERT));
}

void PageView::ShowZoom(double pixelsPerTwip) {
  const std::optional<RECT> former = SheetRect();
  const double scale = pixelsPerTwip / std::exchange(shownScale_, pixelsPerTwip);
  FitScrollBars();
  if (!former) return;
  const SIZE inner = InnerSize();
  Scroll(SB_HORZ, ScrolledAfterZoom(former->left, scale, static_cast<int>(inner.cx), DeskMargin()));
  Scroll(SB_VERT, ScrolledAfterZoom(former->top, scale, static_cast<int>(inner.cy), DeskMargin()));
}

void PageView::ShowChanges() {
  if (Handle() == nullptr) return;
  const int number = document_.PreviewPage();
  const bool isSamePage = std::exchange(shownNumber_, number) == number;
  if (shownScale_ != PixelsPerTwip()) ShowZoom(PixelsPerTwip());
  FitScrollBars();
  if (!isSamePage) ScrollTo(Part::kStart);
  InvalidateRect(Handle(), nullptr, FALSE);
}

void PageView::PutResolution(int dotsPerInch, const std::function<void()>& resize) {
  const POINT scrolled = Scrolled();
  const int former = std::exchange(dotsPerInch_, dotsPerInch);
  resize();
  ShowChanges();
  Scroll(SB_HORZ, MulDiv(static_cast<int>(scrolled.x), dotsPerInch, former));
  Scroll(SB_VERT, MulDiv(static_cast<int>(scrolled.y), dotsPerInch, former));
}

void PageView::PutPointer(const wchar_t* pointer) {
  pointer_ = pointer;
  POINT place{};
  if (GetCursorPos(&place) != FALSE && WindowFromPoint(place) == Handle()) {
    SetCursor(LoadCursorW(nullptr, pointer_));
  }
}

void PageView::DrawDesk(HDC device, const RECT& seen) const {
  Fill(device, seen, DeskUnder(0));
  const std::optional<RECT> sheet = SheetRect();
  if (!sheet) return;
  const int unit = std::max(1, Scaled(1, dotsPerInch_));
  for (int i = kShadowWidth; i >= 1; --i) {
    RECT shadow = *sheet;
    OffsetRect(&shadow, unit, unit);
    InflateRect(&shadow, unit * i, unit * i);
    Fill(device, shadow, DeskUnder(kShadowWidth - i + 1));
  }
  Fill(device, *sheet, RGB(255, 255, 255));
  const int saved = SaveDC(device);
  IntersectClipRect(device, sheet->left, sheet->top, sheet->right, sheet->bottom);
  DrawPage(
      device,
      {static_cast<double>(sheet->left), static_cast<double>(sheet->top), shownScale_, shownScale_},
      *ShownPage());
  RestoreDC(device, saved);
}

// Drawn in memory first, so that nothing flickers.
void PageView::Paint() {
  const Painting painting(Handle());
  const HDC device = painting.Device();
  const RECT& seen = painting.Seen();
  const int width = static_cast<int>(seen.right - seen.left);
  const int height = static_cast<int>(seen.bottom - seen.top);
  const DeviceOwner memory(CreateCompatibleDC(device));
  const BitmapOwner bitmap(CreateCompatibleBitmap(device, width, height));
  if (bitmap) {
    const Selected selected(memory.get(), bitmap.get());
    SetViewportOrgEx(memory.get(), -seen.left, -seen.top, nullptr);
    DrawDesk(memory.get(), seen);
    BitBlt(device, seen.left, seen.top, width, height, memory.get(), seen.left, seen.top, SRCCOPY);
  } else {
    DrawDesk(device, seen);
  }
}

void PageView::FollowBar(int bar, int action) {
  switch (action) {
    case SB_LINEUP:
    case SB_LINEDOWN:
      ScrollLine(bar, action == SB_LINEDOWN);
      break;
    case SB_PAGEUP:
    case SB_PAGEDOWN: {
      const auto page = static_cast<int>(Bar(bar).nPage);
      ScrollBy(bar, action == SB_PAGEDOWN ? page : -page);
      break;
    }
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      Scroll(bar, Bar(bar).nTrackPos);
      break;
    case SB_TOP:
      Scroll(bar, 0);
      break;
    case SB_BOTTOM:
      Scroll(bar, Last(bar));
      break;
    default:
      break;
  }
}

// Fine wheels turn by parts of a notch.
void PageView::TurnWheel(int bar, int turned) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const int notch = lines == WHEEL_PAGESCROLL
                        ? static_cast<int>(Bar(bar).nPage)
                        : static_cast<int>(lines) * Scaled(kLineStep, dotsPerInch_) / 2;
  ScrollBy(bar, MulDiv(notch, turned, WHEEL_DELTA));
}

void PageView::BeginDrag(const POINT& place) {
  SetFocus(Handle());
  if (Last(SB_VERT) == 0 && Last(SB_HORZ) == 0) return;
  drag_ = Drag{place, Scrolled()};
  SetCapture(Handle());
  SetCursor(LoadCursorW(nullptr, IDC_SIZEALL));
}

void PageView::EndDrag() {
  if (!drag_) return;
  drag_.reset();
  ReleaseCapture();
  SetCursor(LoadCursorW(nullptr, pointer_));
}

LRESULT PageView::Receive(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_SIZE:
      FitScrollBars();
      InvalidateRect(Handle(), nullptr, FALSE);
      return 0;
    case WM_HSCROLL:
      FollowBar(SB_HORZ, LOWORD(first));
      return 0;
    case WM_VSCROLL:
      FollowBar(SB_VERT, LOWORD(first));
      return 0;
    case WM_MOUSEWHEEL: {
      const int turned = GET_WHEEL_DELTA_WPARAM(first);
      if ((GET_KEYSTATE_WPARAM(first) & MK_CONTROL) == 0) {
        TurnWheel(SB_VERT, -turned);
      } else if (turned_ += turned; std::abs(turned_) >= WHEEL_DELTA) {
        zoom_(std::exchange(turned_, 0) > 0);
      }
      return 0;
    }
    case WM_MOUSEHWHEEL:
      TurnWheel(SB_HORZ, GET_WHEEL_DELTA_WPARAM(first));
      return 0;
    case WM_LBUTTONDOWN:
      BeginDrag({GET_X_LPARAM(second), GET_Y_LPARAM(second)});
      return 0;
    case WM_MOUSEMOVE:
      if (drag_) {
        Scroll(SB_HORZ, drag_->scrolled.x + drag_->start.x - GET_X_LPARAM(second));
        Scroll(SB_VERT, drag_->scrolled.y + drag_->start.y - GET_Y_LPARAM(second));
      }
      return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      EndDrag();
      return 0;
    case WM_SETCURSOR:
      if (LOWORD(second) != HTCLIENT) break;
      SetCursor(LoadCursorW(nullptr, pointer_));
      return TRUE;
    default:
      break;
  }
  return Window::Receive(message, first, second);
}

}  // namespace td
