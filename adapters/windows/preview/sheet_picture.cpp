#include "windows/preview/sheet_picture.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "windows/controls/visual_styles.h"
#include "windows/preview/window.h"
#include "windows/render/screen_device.h"

namespace td {
namespace {

using PenOwner = std::unique_ptr<HPEN, GdiObjectCloser<HPEN>>;

constexpr COLORREF kShadow = RGB(184, 184, 184);
constexpr COLORREF kEdge = RGB(96, 96, 96);
constexpr COLORREF kMargin = RGB(0, 95, 184);
constexpr COLORREF kTextLine = RGB(190, 190, 190);

LONG Rounded(double value) {
  return static_cast<LONG>(std::lround(value));
}

void Frame(HDC device, const RECT& box, COLORREF colour, int style) {
  const PenOwner pen(CreatePen(style, 1, colour));
  const Selected withPen(device, pen.get());
  const Selected withBrush(device, GetStockObject(NULL_BRUSH));
  SetBkMode(device, TRANSPARENT);
  Rectangle(device, box.left, box.top, box.right, box.bottom);
}

}  // namespace

void DrawSheetPicture(HDC device, const RECT& box, const PageSetupChoice& choice, int dotsPerInch) {
  FillRect(device, &box, GetSysColorBrush(COLOR_3DFACE));
  const PaperExtent sheet = choice.SheetAsRead();
  if (sheet.width <= 0 || sheet.height <= 0) return;
  const auto scaled = [dotsPerInch](int pixels) { return Scaled(pixels, dotsPerInch); };
  const double roomX = static_cast<double>(box.right - box.left) - 2 * scaled(8);
  const double roomY = static_cast<double>(box.bottom - box.top) - 2 * scaled(8);
  const double scale = std::min(roomX / sheet.width, roomY / sheet.height);
  const double left = (box.left + box.right - sheet.width * scale) / 2;
  const double top = (box.top + box.bottom - sheet.height * scale) / 2;
  const RECT paper{Rounded(left), Rounded(top), Rounded(left + sheet.width * scale),
                   Rounded(top + sheet.height * scale)};
  RECT shadow = paper;
  OffsetRect(&shadow, scaled(2), scaled(2));
  Fill(device, shadow, kShadow);
  Fill(device, paper, RGB(255, 255, 255));
  Frame(device, paper, kEdge, PS_SOLID);

  const SheetMargins& margins = choice.margins;
  const RECT inner{Rounded(left + margins.left * scale), Rounded(top + margins.top * scale),
                   Rounded(left + (sheet.width - margins.right) * scale),
                   Rounded(top + (sheet.height - margins.bottom) * scale)};
  if (inner.right <= inner.left || inner.bottom <= inner.top) return;
  Frame(device, inner, kMargin, PS_DASH);
  // A few lines of text show which way the sheet is read.
  const int inset = scaled(5);
  for (LONG y = inner.top + scaled(9); y < inner.bottom - scaled(3); y += scaled(9)) {
    if (inner.right - inner.left <= 2 * inset) break;
    Fill(device, {inner.left + inset, y, inner.right - inset, y + scaled(1)}, kTextLine);
  }
}

}  // namespace td
