#include "sample_page.h"

#include <QBuffer>
#include <QPainter>
#include <array>
#include <cstring>

#include "page_document/pictures.h"
#include "test_tools.h"

namespace td {

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

PictureRef PictureOf(const QImage& image, const char* format) {
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, format));
  Bytes bytes(static_cast<std::size_t>(file.size()));
  std::memcpy(bytes.data(), file.data(), bytes.size());
  return std::make_shared<ImagePicture>(std::move(bytes), image.width(), image.height());
}

PictureRef Image(int width, int height, const char* format) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::black);
  {
    QPainter painter(&image);
    painter.setPen(QPen(Qt::white, 3));
    painter.drawLine(0, height / 2, width, height / 2);
    painter.drawLine(width / 2, 0, width / 2, height);
  }
  return PictureOf(image, format);
}

namespace {

PictureRef Bars() {
  std::vector<VectorPicture::Rectangle> bars = {{0, 0, 2955, 735, {255, 255, 255}}};
  for (int i = 0; i < 20; ++i)
    bars.push_back({100.0 + i * 140, 0, i % 3 == 0 ? 90.0 : 40.0, 480, {}});
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

PlacedPicture Placed(PictureRef picture, double left, double top, double width, double height) {
  return {std::move(picture), left * kTwipsPerMillimetre, top * kTwipsPerMillimetre,
          width * kTwipsPerMillimetre, height * kTwipsPerMillimetre};
}

Line LineOf(double x1, double y1, double x2, double y2, double penWidth) {
  return {x1 * kTwipsPerMillimetre, y1 * kTwipsPerMillimetre, x2 * kTwipsPerMillimetre,
          y2 * kTwipsPerMillimetre, penWidth};
}

PointText AtPoint(const std::string& text, double x, double y, TextAlignment alignment) {
  return {{{{text, Font("宋体", 12)}}},
          {300},
          x * kTwipsPerMillimetre,
          y * kTwipsPerMillimetre,
          alignment};
}

}  // namespace

Page TablePage(double penWidth) {
  const auto& [left, top, right, bottom] =
      std::array{kTable.left(), kTable.top(), kTable.right(), kTable.bottom()};
  return PageOf(
      100, 80,
      {LineOf(left, top, right, top, penWidth), LineOf(left, bottom, right, bottom, penWidth),
       LineOf(left, top, left, bottom, penWidth), LineOf(right, top, right, bottom, penWidth)});
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
       Box("仿宋小字 7.5", 80, 40, 60, 10, TextAlignment::kCentre, Font("仿宋", 7.5)),
       LineOf(150, 45, 200, 45, 14), LineOf(220, 10, 220, 60, 54), LineOf(10, 60, 60, 66, 14),
       AtPoint("起点", 80, 58, TextAlignment::kLeft),
       AtPoint("中点", 120, 58, TextAlignment::kCentre),
       AtPoint("终点", 170, 58, TextAlignment::kRight), wrapped,
       Placed(Image(60, 40), 60, 75, 20, 15), Placed(Image(60, 40, "BMP"), 90, 75, 15, 20),
       Placed(Bars(), 120, 75, 80, 20)});
}

std::vector<SampleItem> SampleItems() {
  return {{"销售订单", QRectF(5, 5, 70, 18)},
          {"单号", QRectF(76, 5, 66, 18)},
          {"1234567.89", QRectF(145, 5, 60, 18)},
          {"Arial", QRectF(5, 24, 70, 14)},
          {"楷体", QRectF(76, 24, 66, 14)},
          {"Times", QRectF(145, 24, 70, 14)},
          {"混排", QRectF(5, 39, 70, 14)},
          {"仿宋", QRectF(76, 39, 66, 14)},
          {"horizontal line", QRectF(145, 42, 62, 6)},
          {"thick line", QRectF(212, 5, 16, 60)},
          {"slanting line", QRectF(5, 55, 60, 15)},
          {"起点", QRectF(76, 55, 30, 12)},
          {"中点", QRectF(108, 55, 30, 12)},
          {"终点", QRectF(145, 55, 35, 12)},
          {"wrapped", QRectF(8, 71, 40, 40)},
          {"PNG", QRectF(55, 71, 30, 30)},
          {"BMP", QRectF(86, 71, 25, 30)},
          {"bars", QRectF(115, 71, 90, 30)}};
}

}  // namespace td
