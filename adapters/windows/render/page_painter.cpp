#include "windows/render/page_painter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <span>
#include <string_view>
#include <tuple>
#include <vector>

#include "page_document/pictures.h"
#include "windows/render/characters.h"
#include "windows/render/picture_pixels.h"
#include "windows/render/screen_device.h"
#include "windows/render/text_layout.h"

namespace td {
namespace {

COLORREF ColourOf(const Colour& colour) {
  return RGB(colour.red, colour.green, colour.blue);
}

bool IsFirstOfPair(wchar_t unit) {
  return IS_HIGH_SURROGATE(unit);
}

// Each run of the pixels in a row that are at least half opaque, where it lies on the device; row
// by row from the top.
std::vector<RECT> ShownParts(const Pixels& pixels, const RECT& box) {
  const double stepX = static_cast<double>(box.right - box.left) / pixels.width;
  const double stepY = static_cast<double>(box.bottom - box.top) / pixels.height;
  const auto isShown = [](std::uint32_t pixel) { return (pixel >> 24U) >= 0x80; };
  std::vector<RECT> parts;
  for (int row = 0; row < pixels.height; ++row) {
    const auto begin = pixels.data.begin() + std::ptrdiff_t{row} * pixels.width;
    const auto end = begin + pixels.width;
    for (auto first = std::find_if(begin, end, isShown); first != end;) {
      const auto last = std::find_if_not(first, end, isShown);
      parts.push_back({box.left + Rounded(static_cast<double>(first - begin) * stepX),
                       box.top + Rounded(row * stepY),
                       box.left + Rounded(static_cast<double>(last - begin) * stepX),
                       box.top + Rounded((row + 1) * stepY)});
      first = std::find_if(last, end, isShown);
    }
  }
  return parts;
}

// A region takes in another one by being copied, and some systems make one of parts by taking in
// each of them: so halves of equal size are joined, and few parts are made a region at once.
RegionOwner RegionOf(std::span<const RECT> parts) {
  constexpr std::size_t kMostAtOnce = 256;
  if (parts.size() > kMostAtOnce) {
    const std::size_t half = parts.size() / 2;
    RegionOwner whole = RegionOf(parts.first(half));
    CombineRgn(whole.get(), whole.get(), RegionOf(parts.subspan(half)).get(), RGN_OR);
    return whole;
  }
  struct {
    RGNDATAHEADER header;
    std::array<RECT, kMostAtOnce> parts;
  } data{};
  data.header.dwSize = sizeof data.header;
  data.header.iType = RDH_RECTANGLES;
  data.header.nCount = static_cast<DWORD>(parts.size());
  data.header.nRgnSize = static_cast<DWORD>(parts.size_bytes());
  for (const RECT& part : parts) UnionRect(&data.header.rcBound, &data.header.rcBound, &part);
  std::ranges::copy(parts, data.parts.begin());
  return RegionOwner(ExtCreateRegion(nullptr, sizeof data, reinterpret_cast<RGNDATA*>(&data)));
}

class PagePainter {
 public:
  PagePainter(HDC device, const DeviceSpace& page) : device_(device), page_(page) {
    SetBkMode(device_, TRANSPARENT);
    SetTextAlign(device_, TA_BASELINE | TA_LEFT);
    SetPolyFillMode(device_, WINDING);
  }

  void Draw(const Page& page) {
    for (const DrawingCommand& command : page.commands) {
      std::visit([this](const auto& drawn) { Draw(drawn); }, command);
    }
  }

 private:
  void Draw(const BoxText& command) { DrawTexts(LayOut(command), page_, {}); }
  void Draw(const PointText& command) { DrawTexts(LayOut(command), page_, {}); }

  // Upright and level lines are as thick as others of one pen, to the pixel, wherever they lie; any
  // other is a rectangle that stands askew.
  void Draw(const Line& line) {
    const double width = std::max(line.penWidth, 1.0);
    const double half = width / 2;
    if (line.y1 == line.y2) {
      const int thickness = std::max(1, Rounded(width * page_.StretchY()));
      const PlanePoint left = page_.At(std::min(line.x1, line.x2) - half, line.y1);
      const PlanePoint right = page_.At(std::max(line.x1, line.x2) + half, line.y1);
      FillLevel(left, right, thickness);
      return;
    }
    if (line.x1 == line.x2) {
      const int thickness = std::max(1, Rounded(width * page_.StretchX()));
      const PlanePoint top = page_.At(line.x1, std::min(line.y1, line.y2) - half);
      const PlanePoint bottom = page_.At(line.x1, std::max(line.y1, line.y2) + half);
      FillUpright(top, bottom, thickness);
      return;
    }
    const double length = std::hypot(line.x2 - line.x1, line.y2 - line.y1);
    const double alongX = (line.x2 - line.x1) / length * half;
    const double alongY = (line.y2 - line.y1) / length * half;
    const std::array<POINT, 4> corners = {
        page_.Nearest(line.x1 - alongX - alongY, line.y1 - alongY + alongX),
        page_.Nearest(line.x1 - alongX + alongY, line.y1 - alongY - alongX),
        page_.Nearest(line.x2 + alongX + alongY, line.y2 + alongY - alongX),
        page_.Nearest(line.x2 + alongX - alongY, line.y2 + alongY + alongX)};
    const Selected brush(device_, GetStockObject(BLACK_BRUSH));
    // The edge is drawn, too: a thin line would else have gaps.
    const Selected pen(device_, GetStockObject(BLACK_PEN));
    Polygon(device_, corners.data(), static_cast<int>(corners.size()));
  }

  void Draw(const PlacedPicture& placed) {
    if (placed.width <= 0 || placed.height <= 0) return;
    if (const auto* image = dynamic_cast<const ImagePicture*>(placed.picture.get())) {
      DrawImage(*image, placed);
    } else if (const auto* drawing = dynamic_cast<const VectorPicture*>(placed.picture.get())) {
      DrawVectors(*drawing, placed);
    }
  }

  void DrawVectors(const VectorPicture& drawing, const PlacedPicture& placed) {
    const PictureSize size = drawing.NaturalSize();
    const DeviceSpace space = page_.Inside(placed.left, placed.top, placed.width / size.width,
                                           placed.height / size.height);
    for (const VectorPicture::Rectangle& bar : drawing.Rectangles()) {
      FillBox(space, bar.left, bar.top, bar.left + bar.width, bar.top + bar.height, bar.colour);
    }
    for (const VectorPicture::Text& text : drawing.Texts()) {
      DrawTexts(LayOut(text), space, text.colour);
    }
  }

  void FillLevel(const PlanePoint& left, const PlanePoint& right, int thickness) {
    const int from = Rounded(left.x);
    const int to = Rounded(right.x);
    const int top = Rounded(left.y - thickness / 2.0);
    const int topAtEnd = Rounded(right.y - thickness / 2.0);
    Fill({POINT{from, top}, {to, topAtEnd}, {to, topAtEnd + thickness}, {from, top + thickness}},
         {});
  }

  void FillUpright(const PlanePoint& top, const PlanePoint& bottom, int thickness) {
    const int from = Rounded(top.y);
    const int to = Rounded(bottom.y);
    const int left = Rounded(top.x - thickness / 2.0);
    const int leftAtEnd = Rounded(bottom.x - thickness / 2.0);
    Fill(
        {POINT{left, from}, {left + thickness, from}, {leftAtEnd + thickness, to}, {leftAtEnd, to}},
        {});
  }

  void FillBox(const DeviceSpace& space, double left, double top, double right, double bottom,
               const Colour& colour) {
    Fill({space.Nearest(left, top), space.Nearest(right, top), space.Nearest(right, bottom),
          space.Nearest(left, bottom)},
         colour);
  }

  // The corners are those of a box in their order, from the top left one; it is at least one pixel
  // wide and high. Edges are its pixels on the left and at the top.
  void Fill(std::array<POINT, 4> box, const Colour& colour) {
    auto& [topLeft, topRight, bottomRight, bottomLeft] = box;
    topRight.x = std::max(topRight.x, topLeft.x + 1);
    bottomRight.x = std::max(bottomRight.x, bottomLeft.x + 1);
    bottomLeft.y = std::max(bottomLeft.y, topLeft.y + 1);
    bottomRight.y = std::max(bottomRight.y, topRight.y + 1);
    const BrushOwner brush(CreateSolidBrush(ColourOf(colour)));
    if (page_.IsUpright()) {
      const RECT pixels{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
      FillRect(device_, &pixels, brush.get());
      return;
    }
    const Selected filled(device_, brush.get());
    const Selected edge(device_, GetStockObject(NULL_PEN));
    Polygon(device_, box.data(), static_cast<int>(box.size()));
  }

  void DrawTexts(const std::vector<PlacedText>& texts, const DeviceSpace& space,
                 const Colour& colour) {
    SetTextColor(device_, ColourOf(colour));
    for (const PlacedText& text : texts) {
      const Selected font(device_, FontOf(text.face, space));
      // A bold that the family lacks is struck twice, a little to the left and to the right.
      const double apart = text.face->syntheticBold ? text.face->lineThickness / 2 : 0;
      DrawText(text, space, -apart / 2);
      if (apart > 0) DrawText(text, space, apart / 2);
    }
  }

  void DrawText(const PlacedText& text, const DeviceSpace& space, double shift) {
    if (text.advances.empty()) {
      DrawUnits(text.text, space.Nearest(text.x + shift, text.y));
    } else if (space.IsUpright()) {
      DrawInSteps(text, space, shift);
    } else {
      DrawLetters(text, space, shift);
    }
  }

  void DrawUnits(std::wstring_view units, const POINT& at) {
    ExtTextOutW(device_, at.x, at.y, 0, nullptr, units.data(), static_cast<UINT>(units.size()),
                nullptr);
  }

  void DrawInSteps(const PlacedText& text, const DeviceSpace& space, double shift) {
    const POINT begin = space.Nearest(text.x + shift, text.y);
    std::vector<INT> steps(text.text.size());
    double end = text.x + shift;
    int last = begin.x;
    for (std::size_t i = 0; i < steps.size(); ++i) {
      end += text.advances[i];
      const int next = Rounded(space.X(end));
      steps[i] = next - last;
      last = next;
    }
    if (std::ranges::any_of(text.text, IsFirstOfPair)) {
      DrawGlyphs(*text.face, text.text, begin, steps);
      return;
    }
    ExtTextOutW(device_, begin.x, begin.y, ETO_IGNORELANGUAGE, nullptr, text.text.data(),
                static_cast<UINT>(text.text.size()), steps.data());
  }

  // Devices take each half of a pair for a character: where there are any, they get the glyphs.
  // There is a step for each unit.
  void DrawGlyphs(const Face& face, std::wstring_view units, const POINT& at,
                  std::vector<INT> steps) {
    std::wstring glyphs;
    std::size_t unit = 0;
    ForEachCharacter(units, [&](char32_t character, std::wstring_view its) {
      steps[glyphs.size()] = steps[unit];  // the second half of a pair has none
      glyphs += static_cast<wchar_t>(face.tables->GlyphOf(character));
      unit += its.size();
    });
    ExtTextOutW(device_, at.x, at.y, ETO_GLYPH_INDEX, nullptr, glyphs.data(),
                static_cast<UINT>(glyphs.size()), steps.data());
  }

  // A font is turned by whole tenths of a degree, and a long text would end beside its place.
  void DrawLetters(const PlacedText& text, const DeviceSpace& space, double shift) {
    double x = text.x + shift;
    std::size_t unit = 0;
    ForEachCharacter(text.text, [&](char32_t, std::wstring_view letter) {
      if (letter.size() == 2) {
        DrawGlyphs(*text.face, letter, space.Nearest(x, text.y), {0, 0});
      } else {
        DrawUnits(letter, space.Nearest(x, text.y));
      }
      x += text.advances[unit];
      unit += letter.size();
    });
  }

  // Letters in a picture that is stretched along one axis are stretched with it.
  HFONT FontOf(const FaceRef& face, const DeviceSpace& space) {
    const int height = Rounded(face->size * space.StretchY());
    const double stretch = space.StretchX() / space.StretchY();
    FontOwner& font = fonts_[{face, height, Rounded(stretch * 1000)}];
    if (font) return font.get();
    font = MakeFont(*face, height, 0, space.Turn());
    if (std::abs(stretch - DeviceStretch()) > 0.01) {
      TEXTMETRICW metrics{};
      {
        const Selected selected(device_, font.get());
        GetTextMetricsW(device_, &metrics);
      }
      const double width = metrics.tmAveCharWidth * stretch / DeviceStretch();
      font = MakeFont(*face, height, std::max(1, Rounded(width)), space.Turn());
    }
    return font.get();
  }

  // What the system itself makes of a device whose pixels are no squares.
  [[nodiscard]] double DeviceStretch() const {
    return static_cast<double>(GetDeviceCaps(device_, LOGPIXELSX)) /
           GetDeviceCaps(device_, LOGPIXELSY);
  }

  void DrawImage(const ImagePicture& image, const PlacedPicture& placed) {
    PixelsRef pixels = PixelsOf(image);
    if (!pixels) return;
    if (!page_.IsUpright()) {
      DrawTurned(pixels, placed);
      return;
    }
    const POINT begin = page_.Nearest(placed.left, placed.top);
    const POINT end = page_.Nearest(placed.left + placed.width, placed.top + placed.height);
    const RECT box{begin.x, begin.y, std::max(end.x, begin.x + 1), std::max(end.y, begin.y + 1)};
    pixels = Reduced(pixels, box.right - box.left, box.bottom - box.top);
    if (!pixels->IsOpaque()) {
      DrawTransparent(*pixels, box);
      return;
    }
    Stretch(pixels->data, *pixels, box);
  }

  // Devices draw upright pictures alone: this one is made anew, of pixels of the device that are
  // finer than its own, within its bounds on the device.
  void DrawTurned(PixelsRef pixels, const PlacedPicture& placed) {
    constexpr double kFinest = 0.1 * kTwipsPerMillimetre;  // what nobody sees on paper
    const double width = placed.width * page_.StretchX();
    const double height = placed.height * page_.StretchY();
    pixels = Reduced(pixels, std::max(1, Rounded(width)), std::max(1, Rounded(height)));
    const double finest = std::min(page_.StretchX(), page_.StretchY()) * kFinest;
    const int step = std::max(1, static_cast<int>(std::min({finest, width / pixels->width / 2,
                                                            height / pixels->height / 2})));

    const double right = placed.left + placed.width;
    const double bottom = placed.top + placed.height;
    const std::array corners = {page_.At(placed.left, placed.top), page_.At(right, placed.top),
                                page_.At(placed.left, bottom), page_.At(right, bottom)};
    const auto [left, mostRight] = std::ranges::minmax(corners, {}, &PlanePoint::x);
    const auto [top, lowest] = std::ranges::minmax(corners, {}, &PlanePoint::y);
    const POINT begin{static_cast<LONG>(std::floor(left.x)), static_cast<LONG>(std::floor(top.y))};
    const int columns = static_cast<int>(std::ceil((mostRight.x - begin.x) / step));
    const int rows = static_cast<int>(std::ceil((lowest.y - begin.y) / step));

    const AffineMap fromSteps{
        static_cast<double>(step),   0, 0, static_cast<double>(step), static_cast<double>(begin.x),
        static_cast<double>(begin.y)};
    const auto toPixels = MapBetween({corners[0], corners[1], corners[2]},
                                     {PlanePoint{0, 0},
                                      {static_cast<double>(pixels->width), 0},
                                      {0, static_cast<double>(pixels->height)}});
    if (!toPixels) return;  // it has no area
    DrawTransparent(*Turned(*pixels, Combined(*toPixels, fromSteps), columns, rows),
                    {begin.x, begin.y, begin.x + columns * step, begin.y + rows * step});
  }

  void Stretch(const std::vector<std::uint32_t>& data, const Pixels& pixels, const RECT& box) {
    const BITMAPINFO info = RowsFromTheTop(pixels.width, pixels.height);
    SetStretchBltMode(device_, HALFTONE);
    SetBrushOrgEx(device_, 0, 0, nullptr);
    StretchDIBits(device_, box.left, box.top, box.right - box.left, box.bottom - box.top, 0, 0,
                  pixels.width, pixels.height, data.data(), &info, DIB_RGB_COLORS, SRCCOPY);
  }

  // Printers can't mix a picture with what lies below it. So a pixel that is less than half opaque
  // is left out, and any other is mixed with the paper's white.
  void DrawTransparent(const Pixels& pixels, const RECT& box) {
    const std::vector<RECT> parts = ShownParts(pixels, box);
    if (parts.empty()) return;
    const RegionOwner shown = RegionOf(parts);
    std::vector<std::uint32_t> mixed(pixels.data.size());
    std::ranges::transform(pixels.data, mixed.begin(), [](std::uint32_t pixel) {
      const std::uint32_t opacity = pixel >> 24U;
      std::uint32_t result = 0;
      for (unsigned shift = 0; shift < 24; shift += 8) {
        const std::uint32_t part = (pixel >> shift) & 0xFFU;
        result |= ((part * opacity + 0xFF * (0xFF - opacity)) / 0xFF) << shift;
      }
      return result;
    });
    const int saved = SaveDC(device_);
    POINT origin{};
    GetViewportOrgEx(device_, &origin);  // regions for clipping are in the device's own space
    OffsetRgn(shown.get(), origin.x, origin.y);
    ExtSelectClipRgn(device_, shown.get(), RGN_AND);
    Stretch(mixed, pixels, box);
    RestoreDC(device_, saved);
  }

  HDC device_;
  DeviceSpace page_;
  std::map<std::tuple<FaceRef, int, int>, FontOwner> fonts_;
};

}  // namespace

void DrawPage(HDC device, const DevicePlace& place, const Page& page, const AffineMap& drawn) {
  const int saved = SaveDC(device);
  PagePainter(device, DeviceSpace(place, page, drawn)).Draw(page);
  RestoreDC(device, saved);
}

}  // namespace td
