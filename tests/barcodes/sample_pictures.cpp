#include "sample_pictures.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <algorithm>
#include <array>
#include <initializer_list>

namespace td {
namespace {

// The types of TIFF entries.
constexpr unsigned kShort = 3;  // a value stands in the upper half of the entry's four bytes
constexpr unsigned kLong = 4;
constexpr unsigned kRational = 5;

void Append(Bytes& bytes, std::initializer_list<unsigned> values) {
  for (const unsigned value : values) bytes.push_back(static_cast<std::byte>(value));
}

void AppendU32(Bytes& bytes, std::uint32_t number) {
  Append(bytes, {number >> 24 & 0xFF, number >> 16 & 0xFF, number >> 8 & 0xFF, number & 0xFF});
}

void Put(Bytes& bytes, std::size_t at, std::initializer_list<unsigned> values) {
  for (const unsigned value : values) bytes.at(at++) = static_cast<std::byte>(value);
}

std::uint32_t Checksum(const Bytes& bytes, std::size_t from, std::size_t to) {
  std::uint32_t sum = 0xFFFFFFFF;
  for (std::size_t i = from; i < to; ++i) {
    sum ^= std::to_integer<std::uint32_t>(bytes[i]);
    for (int bit = 0; bit < 8; ++bit) sum = (sum & 1) != 0 ? sum >> 1 ^ 0xEDB88320 : sum >> 1;
  }
  return ~sum;
}

void AppendEntry(Bytes& tiff, unsigned tag, unsigned type, std::uint32_t value) {
  Append(tiff, {tag >> 8, tag & 0xFF, 0, type, 0, 0, 0, 1});
  AppendU32(tiff, value);
}

}  // namespace

Bytes BytesOf(std::string_view text) {
  const auto* first = reinterpret_cast<const std::byte*>(text.data());
  return {first, first + text.size()};
}

Bytes SamplePicture(const char* format, int width, int height, double dotsPerInch) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::blue);
  QPainter(&image).fillRect(0, 0, width / 2, height, Qt::red);
  if (dotsPerInch > 0) {
    image.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    image.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
  }
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter(&buffer, format).write(image);
  const auto* first = reinterpret_cast<const std::byte*>(buffer.data().constData());
  return {first, first + buffer.size()};
}

Bytes DetailedJpeg(Scans scans) {
  QImage image(256, 256, QImage::Format_RGB32);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      image.setPixel(x, y, qRgb(x, y, x * 40 % 256 ^ y * 24 % 256));
    }
  }
  QBuffer buffer;
  QImageWriter writer(&buffer, "jpeg");
  writer.setProgressiveScanWrite(scans == Scans::kSeveral);
  writer.write(image);
  return BytesOf({buffer.data().constData(), static_cast<std::size_t>(buffer.data().size())});
}

Bytes SampleGif() {
  Bytes gif = BytesOf("GIF89a");
  Append(gif, {10, 0, 6, 0, 0x80, 0, 0});           // screen, with a table of two colours
  Append(gif, {255, 0, 0, 0, 0, 255});              // red, blue
  Append(gif, {0x2C, 0, 0, 0, 0, 10, 0, 6, 0, 0});  // one image over the whole screen
  Append(gif, {2});                                 // codes begin with three bits
  // A clear code (4) before every second pixel keeps all codes at three bits.
  std::array<unsigned, 64> data = {};
  std::size_t bit = 0;
  const auto code = [&](unsigned value) {
    for (int i = 0; i < 3; ++i, ++bit) data.at(bit / 8) |= (value >> i & 1U) << bit % 8;
  };
  for (int pixel = 0; pixel < 60; ++pixel) {
    if (pixel % 2 == 0) code(4);
    code(pixel % 10 < 5 ? 0 : 1);
  }
  code(5);
  const std::size_t size = (bit + 7) / 8;
  Append(gif, {static_cast<unsigned>(size)});
  for (std::size_t i = 0; i < size; ++i) Append(gif, {data.at(i)});
  Append(gif, {0, 0x3B});
  return gif;
}

Bytes WithExif(const Bytes& jpeg, std::uint16_t orientation, std::uint32_t dotsPerInchX,
               std::uint32_t dotsPerInchY) {
  Bytes tiff = BytesOf("MM");
  Append(tiff, {0, 42, 0, 0, 0, 8, 0, 4});
  constexpr std::uint32_t kBehindDirectory = 8 + 2 + 4 * 12 + 4;
  AppendEntry(tiff, 0x0112, kShort, std::uint32_t{orientation} << 16);
  AppendEntry(tiff, 0x011A, kRational, kBehindDirectory);
  AppendEntry(tiff, 0x011B, kRational, kBehindDirectory + 8);
  AppendEntry(tiff, 0x0128, kShort, 2U << 16);
  AppendU32(tiff, 0);
  for (const std::uint32_t number : {dotsPerInchX, 1U, dotsPerInchY, 1U}) AppendU32(tiff, number);

  Bytes file = Shortened(jpeg, 2);
  const std::size_t length = 2 + 6 + tiff.size();
  Append(file, {0xFF, 0xE1, static_cast<unsigned>(length >> 8),
                static_cast<unsigned>(length & 0xFF), 'E', 'x', 'i', 'f', 0, 0});
  file.insert(file.end(), tiff.begin(), tiff.end());
  constexpr std::ptrdiff_t kBehindJfif = 2 + 18;
  file.insert(file.end(), jpeg.begin() + kBehindJfif, jpeg.end());
  return file;
}

Bytes PngBomb() {
  Bytes png = SamplePicture("png", 4, 4);
  Put(png, 16, {0, 0, 0xEA, 0x60, 0, 0, 0xEA, 0x60});
  const std::uint32_t sum = Checksum(png, 12, 29);
  Put(png, 29, {sum >> 24, sum >> 16 & 0xFF, sum >> 8 & 0xFF, sum & 0xFF});
  return png;
}

Bytes GifBomb() {
  Bytes gif = SampleGif();
  Put(gif, 6, {0x60, 0xEA, 0x60, 0xEA});
  return gif;
}

Bytes BmpBomb() {
  Bytes bmp = SamplePicture("bmp", 4, 4);
  Put(bmp, 18, {0x60, 0xEA, 0, 0, 0x60, 0xEA, 0, 0});
  Put(bmp, 28, {8, 0, 1, 0, 0, 0});  // run-length coded, so that any size may be in few bytes
  return bmp;
}

Bytes JpegBomb() {
  Bytes jpeg = SamplePicture("jpeg", 16, 16);
  const Bytes frame = BytesOf(std::string_view("\xFF\xC0", 2));
  const auto found = std::search(jpeg.begin(), jpeg.end(), frame.begin(), frame.end());
  Put(jpeg, static_cast<std::size_t>(found - jpeg.begin()) + 5, {0xEA, 0x60, 0xEA, 0x60});
  return jpeg;
}

Bytes TiffBomb() {
  Bytes tiff = BytesOf("MM");
  Append(tiff, {0, 42, 0, 0, 0, 8, 0, 9});
  AppendEntry(tiff, 0x0100, kLong, 60000);
  AppendEntry(tiff, 0x0101, kLong, 60000);
  AppendEntry(tiff, 0x0102, kShort, 1U << 16);  // bits
  AppendEntry(tiff, 0x0103, kShort, 1U << 16);  // not compressed
  AppendEntry(tiff, 0x0106, kShort, 1U << 16);  // 0 is black
  AppendEntry(tiff, 0x0111, kLong, 8);          // the pixels' place
  AppendEntry(tiff, 0x0115, kShort, 1U << 16);  // one sample to the pixel
  AppendEntry(tiff, 0x0116, kLong, 60000);      // all rows in one strip
  AppendEntry(tiff, 0x0117, kLong, 450000000);
  AppendU32(tiff, 0);
  return tiff;
}

Bytes Shortened(const Bytes& file, std::size_t size) {
  return {file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size)};
}

}  // namespace td
