#include "sample_page.h"

#include "windows/render/picture_pixels.h"

namespace td {
namespace {

PointText AtPoint(const std::string& text, double x, double y, TextAlignment alignment) {
  return {{{{text, Font("宋体", 12)}}},
          {300},
          x * kTwipsPerMillimetre,
          y * kTwipsPerMillimetre,
          alignment};
}

}  // namespace

FontRef Font(const std::string& name, double points, bool bold, bool italic) {
  return std::make_shared<const TextFont>(TextFont{name, points, bold, italic});
}

Page PageOf(double width, double height, std::vector<DrawingCommand> commands) {
  return {width * kTwipsPerMillimetre, height * kTwipsPerMillimetre, std::move(commands)};
}

BoxText Box(const std::string& text, double left, double top, double width, double height,
            TextAlignment alignment, FontRef font) {
  return {text,
          left * kTwipsPerMillimetre,
          top * kTwipsPerMillimetre,
          width * kTwipsPerMillimetre,
          height * kTwipsPerMillimetre,
          false,
          alignment,
          std::move(font)};
}

PlacedPicture Placed(PictureRef picture, double left, double top, double width, double height) {
  return {std::move(picture), left * kTwipsPerMillimetre, top * kTwipsPerMillimetre,
          width * kTwipsPerMillimetre, height * kTwipsPerMillimetre};
}

Line LineOf(double x1, double y1, double x2, double y2, double penWidth) {
  return {x1 * kTwipsPerMillimetre, y1 * kTwipsPerMillimetre, x2 * kTwipsPerMillimetre,
          y2 * kTwipsPerMillimetre, penWidth};
}

PictureRef CrossPicture(int width, int height, bool halfOpen) {
  Pixels pixels{width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const bool isCross = x == width / 2 || y == height / 2;
      const bool isOpen = halfOpen && x > width / 2;
      pixels.data.push_back(isOpen ? 0 : isCross ? 0xFFFFFFFF : 0xFF000000);
    }
  }
  return std::make_shared<ImagePicture>(ToPng(pixels, 96), width, height);
}

PictureRef Bars() {
  std::vector<VectorPicture::Rectangle> bars = {{0, 0, 2955, 735, {255, 255, 255}}};
  for (int i = 0; i < 20; ++i) {
    bars.push_back({100.0 + i * 140, 0, i % 3 == 0 ? 90.0 : 40.0, 480, {}});
  }
  return std::make_shared<VectorPicture>(
      PictureSize{2955, 735}, std::move(bars),
      std::vector<VectorPicture::Text>{{"110101-234234",
                                        {"宋体", 9, false, false},
                                        TextAlignment::kCentre,
                                        0,
                                        500,
                                        2955,
                                        235,
                                        {}}});
}

Page SamplePage() {
  BoxText wrapped = Box("自动换行的备注文字，包含 words 与数字 12345。", 12, 72, 30, 30);
  wrapped.wordWrap = true;
  return PageOf(
      241, 140,
      {Box("销售订单", 10, 10, 60, 10, TextAlignment::kCentre, Font("黑体", 18, true)),
       Box("单号：XSD-000123", 80, 10, 60, 10),
       Box("1234567.89", 150, 10, 40, 10, TextAlignment::kRight),
       Box("Arial 12.50", 10, 25, 60, 10, TextAlignment::kLeft, Font("Arial", 11.25)),
       Box("楷体粗体 Bold", 80, 25, 60, 10, TextAlignment::kLeft, Font("楷体", 14, true)),
       Box("Times Italic", 150, 25, 60, 10, TextAlignment::kRight,
           Font("Times New Roman", 12, false, true)),
       Box("混排 mixed 混排", 10, 40, 60, 10, TextAlignment::kCentre, Font("Courier New", 12)),
       Box("宋体斜体 7.5", 80, 40, 60, 10, TextAlignment::kCentre, Font("宋体", 7.5, false, true)),
       LineOf(150, 45, 200, 45, 14), LineOf(220, 10, 220, 60, 54), LineOf(10, 60, 60, 66, 14),
       AtPoint("起点", 80, 58, TextAlignment::kLeft),
       AtPoint("中点", 120, 58, TextAlignment::kCentre),
       AtPoint("终点", 170, 58, TextAlignment::kRight), wrapped,
       Placed(CrossPicture(60, 40), 60, 75, 20, 15),
       Placed(CrossPicture(61, 41, true), 90, 75, 15, 20), Placed(Bars(), 120, 75, 80, 20)});
}

}  // namespace td
