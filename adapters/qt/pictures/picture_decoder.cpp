#include "pictures/picture_decoder.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixelFormat>
#include <algorithm>
#include <string>
#include <utility>

#include "platform/failure.h"

namespace td {
namespace {

constexpr int kLeastBits = 32;  // of a pixel, to which decoders widen smaller ones

// The name of Qt's decoder; empty for an unknown format.
const char* DecoderOf(PictureFormat format) {
  switch (format) {
    case PictureFormat::kJpeg:
      return "jpeg";
    case PictureFormat::kPng:
      return "png";
    case PictureFormat::kBmp:
      return "bmp";
    case PictureFormat::kGif:
      return "gif";
    case PictureFormat::kTiff:
      return "tiff";
    case PictureFormat::kUnknown:
      break;
  }
  return "";
}

Failure CannotDecode(PictureFormat format) {
  if (!QImageReader::supportedImageFormats().contains(DecoderOf(format))) {
    return {kInvalidPicture,
            std::string("本机没有安装 ") + DecoderOf(format) + " 图片的解码组件。"};
  }
  return {kInvalidPicture, "图片文件已损坏，无法解码。"};
}

void RefuseAbsurdSize(const PixelSize& size, int bitsPerPixel) {
  if (size.width <= 0 || size.height <= 0) {
    throw Failure(kInvalidPicture, "图片文件已损坏：无法读出图片的大小。");
  }
  const double bytes =
      static_cast<double>(size.width) * static_cast<double>(size.height) * bitsPerPixel / 8;
  if (bytes > static_cast<double>(kLargestDecodedBytes)) {
    throw Failure(kInvalidPicture, "图片过大，不予装入：" + std::to_string(size.width) + "×" +
                                       std::to_string(size.height) + " 像素展开后超过 " +
                                       std::to_string(kLargestDecodedBytes >> 20) + " MB。");
  }
}

int DecodedBits(const QImageReader& reader, PictureFormat format) {
  // Only these have deeper pixels; and Qt answers a damaged JPEG file with a number that is no
  // image format at all.
  if (format != PictureFormat::kPng && format != PictureFormat::kTiff) return kLeastBits;
  const QImage::Format pixels = reader.imageFormat();
  if (pixels <= QImage::Format_Invalid || pixels >= QImage::NImageFormats) return kLeastBits;
  return std::max(kLeastBits, int{QImage::toPixelFormat(pixels).bitsPerPixel()});
}

}  // namespace

DecodedPicture DecodePicture(const Bytes& file) {
  if (file.empty()) throw Failure(kInvalidPicture, "图片文件是空的。");
  if (file.size() > kLargestFileBytes) {
    throw Failure(kInvalidPicture, "图片文件过大，不予装入：超过 " +
                                       std::to_string(kLargestFileBytes >> 20) + " MB。");
  }
  const PictureFormat format = FormatOf(file);
  if (format == PictureFormat::kUnknown) {
    throw Failure(kInvalidPicture, "不是可用的图片文件：只支持 JPEG、PNG、BMP、GIF 和 TIFF。");
  }
  RefuseAbsurdSize(SizeOf(file), kLeastBits);
  if (!IsComplete(file)) throw Failure(kInvalidPicture, "图片文件不完整。");

  QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                             static_cast<qsizetype>(file.size()));
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, DecoderOf(format));
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  if (!reader.canRead()) throw CannotDecode(format);
  // Once more with what the decoder has understood, which needn't be what the header announced.
  RefuseAbsurdSize({reader.size().width(), reader.size().height()}, DecodedBits(reader, format));
  QImage image = reader.read();
  if (image.isNull()) throw CannotDecode(format);
  return {std::move(image), reader.transformation() != QImageIOHandler::TransformationNone};
}

Bytes EncodePicture(const QImage& image, PictureFormat origin) {
  constexpr int kHardlyAnyLoss = 95;
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  const bool written = origin == PictureFormat::kJpeg ? image.save(&buffer, "jpeg", kHardlyAnyLoss)
                                                      : image.save(&buffer, "png");
  if (!written) throw Failure(kInvalidPicture, "图片转正后无法重新编码。");
  const auto* first = reinterpret_cast<const std::byte*>(buffer.data().constData());
  return {first, first + buffer.size()};
}

}  // namespace td
