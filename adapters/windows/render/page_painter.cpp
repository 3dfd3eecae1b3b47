#include "windows/render/page_painter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <tuple>
#include <vector>

#include "page_document/pictures.h"
#include "windows/render/picture_pixels.h"
#include "windows/render/screen_device.h"
#include "windows/render/text_layout.h"

namespace td {
namespace {

int Rounded(double value) {
  return static_cast<int>(std::lround(value));
}

COLORREF ColourOf(const Colour& colour) {
  return RGB(colour.red, colour.green, colour.blue);
}

bool IsPrinter(HDC device) {
  return GetDeviceCaps(device, TECHNOLOGY) == DT_RASPRINTER ||
         (GetDeviceCaps(device, TECHNOLOGY) == DT_PLOTTER);
}

// From a space in twips to the device.
struct Space {
  double x;
  double y;
  double scaleX;
  double scaleY;

  [[nodiscard]] double X(double twips) const { return x + twips * scaleX; }
  [[nodiscard]] double Y(double twips) const { return y + twips * scaleY; }
};

class PagePainter {
 public:
  PagePainter(HDC device, const Space& page) : device_(device), page_(page) {
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

  // Upright and level lines are rectangles to the pixel, and those of one pen equally thick,
  // wherever they lie; any other is a rectangle that stands askew.
  void Draw(const Line& line) {
    const double width = std::max(line.penWidth, 1.0);
    const double half = width / 2;
    if (line.y1 == line.y2) {
      const int thickness = std::max(1, Rounded(width * page_.scaleY));
      const int top = Rounded(page_.Y(line.y1) - thickness / 2.0);
      FillPixels({Rounded(page_.X(std::min(line.x1, line.x2) - half)), top,
                  Rounded(page_.X(std::max(line.x1, line.x2) + half)), top + thickness},
                 {});
      return;
    }
    if (line.x1 == line.x2) {
      const int thickness = std::max(1, Rounded(width * page_.scaleX));
      const int left = Rounded(page_.X(line.x1) - thickness / 2.0);
      FillPixels({left, Rounded(page_.Y(std::min(line.y1, line.y2) - half)), left + thickness,
                  Rounded(page_.Y(std::max(line.y1, line.y2) + half))},
                 {});
      return;
    }
    const double length = std::hypot(line.x2 - line.x1, line.y2 - line.y1);
    const double alongX = (line.x2 - line.x1) / length * half;
    const double alongY = (line.y2 - line.y1) / length * half;
    const auto corner = [this](double x, double y) {
      return POINT{Rounded(page_.X(x)), Rounded(page_.Y(y))};
    };
    const std::array<POINT, 4> corners = {
        corner(line.x1 - alongX - alongY, line.y1 - alongY + alongX),
        corner(line.x1 - alongX + alongY, line.y1 - alongY - alongX),
        corner(line.x2 + alongX + alongY, line.y2 + alongY - alongX),
        corner(line.x2 + alongX - alongY, line.y2 + alongY + alongX)};
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
    const Space space{page_.X(placed.left), page_.Y(placed.top),
                      page_.scaleX * placed.width / size.width,
                      page_.scaleY * placed.height / size.height};
    for (const VectorPicture::Rectangle& bar : drawing.Rectangles()) {
      FillBox(space, bar.left, bar.top, bar.left + bar.width, bar.top + bar.height, bar.colour);
    }
    for (const VectorPicture::Text& text : drawing.Texts()) {
      DrawTexts(LayOut(text), space, text.colour);
    }
  }

  void FillBox(const Space& space, double left, double top, double right, double bottom,
               const Colour& colour) {
    FillPixels({Rounded(space.X(left)), Rounded(space.Y(top)), Rounded(space.X(right)),
                Rounded(space.Y(bottom))},
               colour);
  }

  // At least one pixel wide and high.
  void FillPixels(RECT box, const Colour& colour) {
    box.right = std::max(box.right, box.left + 1);
    box.bottom = std::max(box.bottom, box.top + 1);
    const BrushOwner brush(CreateSolidBrush(ColourOf(colour)));
    FillRect(device_, &box, brush.get());
  }

  void DrawTexts(const std::vector<PlacedText>& texts, const Space& space, const Colour& colour) {
    SetTextColor(device_, ColourOf(colour));
    for (const PlacedText& text : texts) {
      const Selected font(device_, FontOf(text.face, space));
      // A bold that the family lacks is struck twice, a little to the left and to the right.
      const double apart = text.face->syntheticBold ? text.face->lineThickness / 2 : 0;
      DrawText(text, space, -apart / 2);
      if (apart > 0) DrawText(text, space, apart / 2);
    }
  }

  void DrawText(const PlacedText& text, const Space& space, double shift) {
    const int x = Rounded(space.X(text.x + shift));
    const int y = Rounded(space.Y(text.y));
    const auto length = static_cast<UINT>(text.text.size());
    if (text.advances.empty()) {
      ExtTextOutW(device_, x, y, 0, nullptr, text.text.data(), length, nullptr);
      return;
    }
    std::vector<INT> steps(text.text.size());
    double end = text.x + shift;
    int last = x;
    for (std::size_t i = 0; i < steps.size(); ++i) {
      end += text.advances[i];
      const int next = Rounded(space.X(end));
      steps[i] = next - last;
      last = next;
    }
    ExtTextOutW(device_, x, y, ETO_IGNORELANGUAGE, nullptr, text.text.data(), length, steps.data());
  }

  // Letters in a picture that is stretched along one axis are stretched with it.
  HFONT FontOf(const FaceRef& face, const Space& space) {
    const int height = Rounded(face->size * space.scaleY);
    const double stretch = space.scaleX / space.scaleY;
    FontOwner& font = fonts_[{face, height, Rounded(stretch * 1000)}];
    if (font) return font.get();
    font = MakeFont(*face, height);
    if (std::abs(stretch - DeviceStretch()) > 0.01) {
      TEXTMETRICW metrics{};
      {
        const Selected selected(device_, font.get());
        GetTextMetricsW(device_, &metrics);
      }
      const double width = metrics.tmAveCharWidth * stretch / DeviceStretch();
      font = MakeFont(*face, height, std::max(1, Rounded(width)));
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
    const int left = Rounded(page_.X(placed.left));
    const int top = Rounded(page_.Y(placed.top));
    const int width = std::max(1, Rounded(page_.X(placed.left + placed.width)) - left);
    const int height = std::max(1, Rounded(page_.Y(placed.top + placed.height)) - top);
    // Printers get all pixels.
    if (!IsPrinter(device_)) pixels = Reduced(pixels, width, height);
    if (!pixels->IsOpaque()) {
      DrawTransparent(*pixels, {left, top, left + width, top + height});
      return;
    }
    Stretch(pixels->data, *pixels, {left, top, left + width, top + height});
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
    const double stepX = static_cast<double>(box.right - box.left) / pixels.width;
    const double stepY = static_cast<double>(box.bottom - box.top) / pixels.height;
    const RegionOwner shown(CreateRectRgn(0, 0, 0, 0));
    for (int row = 0; row < pixels.height; ++row) {
      const std::uint32_t* line =
          &pixels.data[static_cast<std::size_t>(row) * static_cast<std::size_t>(pixels.width)];
      for (int begin = 0; begin < pixels.width;) {
        const bool isShown = (line[begin] >> 24U) >= 0x80;
        int end = begin + 1;
        while (end < pixels.width && ((line[end] >> 24U) >= 0x80) == isShown) ++end;
        if (isShown) {
          const RegionOwner run(
              CreateRectRgn(box.left + Rounded(begin * stepX), box.top + Rounded(row * stepY),
                            box.left + Rounded(end * stepX), box.top + Rounded((row + 1) * stepY)));
          CombineRgn(shown.get(), shown.get(), run.get(), RGN_OR);
        }
        begin = end;
      }
    }
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
  Space page_;
  std::map<std::tuple<FaceRef, int, int>, FontOwner> fonts_;
};

}  // namespace

void DrawPage(HDC device, const DevicePlace& place, const Page& page) {
  const int saved = SaveDC(device);
  PagePainter(device, {place.x, place.y, place.scaleX, place.scaleY}).Draw(page);
  RestoreDC(device, saved);
}

}  // namespace td
