// Pages that are drawn through a map: everything comes out where the map puts it.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "sample_page.h"
#include "windows/render/page_painter.h"
#include "windows/render/picture_pixels.h"
#include "windows/render/screen_device.h"

namespace td {
namespace {

constexpr double kDotsPerInch = 508;  // twenty pixels a millimetre

class Drawn {
 public:
  Drawn(const Page& page, const AffineMap& map, double dotsPerInch = kDotsPerInch)
      : scale_(dotsPerInch / kTwipsPerInch),
        width_(static_cast<int>(page.width * scale_)),
        height_(static_cast<int>(page.height * scale_)) {
    const BITMAPINFO info = RowsFromTheTop(width_, height_);
    void* bits = nullptr;
    const DeviceOwner device(CreateCompatibleDC(nullptr));
    const BitmapOwner bitmap(
        CreateDIBSection(device.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const Selected selected(device.get(), bitmap.get());
    PatBlt(device.get(), 0, 0, width_, height_, WHITENESS);
    DrawPage(device.get(), {.scaleX = scale_, .scaleY = scale_}, page, map);
    GdiFlush();
    const auto* first = static_cast<const std::uint32_t*>(bits);
    pixels_.assign(first, first + static_cast<std::ptrdiff_t>(width_) * height_);
  }

  [[nodiscard]] int Width() const { return width_; }
  [[nodiscard]] int Height() const { return height_; }
  [[nodiscard]] double Scale() const { return scale_; }  // pixels to a twip
  [[nodiscard]] bool IsDark(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return false;
    return (pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                    static_cast<std::size_t>(x)] &
            0xFFU) < 0x80;
  }

 private:
  double scale_;
  int width_;
  int height_;
  std::vector<std::uint32_t> pixels_;
};

// The dark pixels of a picture that have no dark one of the other near them, where `to` takes their
// middles.
int Lonely(const Drawn& picture, const Drawn& other, const AffineMap& to) {
  constexpr int kNear = 3;  // a tenth of a millimetre, and one for what is cut into pixels
  int lonely = 0;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      if (!picture.IsDark(x, y)) continue;
      const PlanePoint place = to({(x + 0.5) / picture.Scale(), (y + 0.5) / picture.Scale()});
      const int column = static_cast<int>(std::floor(place.x * other.Scale()));
      const int row = static_cast<int>(std::floor(place.y * other.Scale()));
      const bool isOutside =
          column < 0 || row < 0 || column >= other.Width() || row >= other.Height();
      bool isNear = isOutside;
      for (int dy = -kNear; dy <= kNear && !isNear; ++dy) {
        for (int dx = -kNear; dx <= kNear && !isNear; ++dx) {
          isNear = other.IsDark(column + dx, row + dy);
        }
      }
      if (!isNear) ++lonely;
    }
  }
  return lonely;
}

// By degrees with the clock, stretched along either side and moved by millimetres.
AffineMap MapThat(double turns, double stretchX, double stretchY, double right, double down) {
  const double angle = turns * std::numbers::pi / 180;
  return {stretchX * std::cos(angle), -stretchY * std::sin(angle), stretchX * std::sin(angle),
          stretchY * std::cos(angle), right * kTwipsPerMillimetre, down * kTwipsPerMillimetre};
}

// The pictures of the sample are coarse, and smoothed where they are drawn upright.
Page PageOfAllKinds() {
  const Page sample = SamplePage();
  Page page = PageOf(241, 140, {});
  for (const DrawingCommand& command : sample.commands) {
    const auto* placed = std::get_if<PlacedPicture>(&command);
    const bool isImage =
        placed != nullptr && dynamic_cast<const ImagePicture*>(placed->picture.get()) != nullptr;
    if (!isImage) page.commands.push_back(command);
  }
  page.commands.push_back(Placed(CrossPicture(301, 201), 20, 100, 30, 20));
  page.commands.push_back(Placed(CrossPicture(201, 301, true), 210, 100, 20, 30));
  return page;
}

TEST(MappedPage, ComesOutWhereTheMapPutsIt) {
  // Of some 300,000: where letters are fitted to pixels, and at the corners of thick lines.
  constexpr int kFew = 50;
  const Page page = PageOfAllKinds();
  const Drawn straight(page, {});
  for (const AffineMap& map : {MapThat(0, 0.98, 1.01, 2, -1.5), MapThat(0.1, 1, 1, 0, 0),
                               MapThat(1.5, 1.01, 0.99, 3, 1), MapThat(-3, 1.05, 1.05, -2, 4)}) {
    const Drawn mapped(page, map);
    EXPECT_LE(Lonely(straight, mapped, map), kFew) << map.xx << ", " << map.yx;
    EXPECT_LE(Lonely(mapped, straight, *InverseOf(map)), kFew) << map.xx << ", " << map.yx;
  }
}

TEST(MappedPage, HasLinesThatAreEquallyThickWhereverTheyLie) {
  constexpr double kPrinter = 180;
  const Page page = PageOf(100, 80, {LineOf(10, 20, 90, 20, 14), LineOf(10, 40.07, 90, 40.07, 14)});
  const Drawn mapped(page, MapThat(0.7, 1, 1, 0, 0), kPrinter);
  for (int x = 100; x < 600; ++x) {
    int dark = 0;
    for (int y = 0; y < mapped.Height(); ++y) dark += mapped.IsDark(x, y) ? 1 : 0;
    EXPECT_EQ(dark, 2 * 2) << x;
  }
}

// Half a dot from one end of the page to the other is nothing that paper shows.
TEST(MappedPage, StaysUprightWhereTheTurnIsUnseen) {
  const Page page = SamplePage();
  const Drawn straight(page, {});
  const Drawn mapped(page, {1, 1e-7, -1e-7, 1, 0, 0});
  for (int y = 0; y < mapped.Height(); ++y) {
    for (int x = 0; x < mapped.Width(); ++x) {
      ASSERT_EQ(mapped.IsDark(x, y), straight.IsDark(x, y)) << x << ", " << y;
    }
  }
}

}  // namespace
}  // namespace td
