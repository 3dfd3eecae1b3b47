#include "pictures/picture_decoder.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixelFormat>
#include <algorithm>
#include <string>

#include "pictures/picture_headers.h"
#include "platform/failure.h"

namespace td {
namespace {

// The name of the decoder; empty for an unknown format.
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

void RefuseAbsurdSize(const QImageReader& reader) {
  const QSize size = reader.size();
  if (size.width() <= 0 || size.height() <= 0) {
    throw Failure(kInvalidPicture, "图片文件已损坏：无法读出图片的大小。");
  }
  constexpr double kBitsPerByte = 8;
  constexpr int kLeastBits = 32;  // to which decoders widen smaller pixels
  const int bits = reader.imageFormat() == QImage::Format_Invalid
                       ? kLeastBits
                       : QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel();
  const double bytes =
      static_cast<double>(size.width()) * size.height() * std::max(bits, kLeastBits) / kBitsPerByte;
  if (bytes > static_cast<double>(kLargestDecodedBytes)) {
    throw Failure(kInvalidPicture, "图片过大，不予装入：" + std::to_string(size.width()) + "×" +
                                       std::to_string(size.height()) + " 像素展开后超过 " +
                                       std::to_string(kLargestDecodedBytes >> 20) + " MB。");
  }
}

}  // namespace

QImage DecodePicture(const Bytes& file) {
  if (file.empty()) throw Failure(kInvalidPicture, "图片文件是空的。");
  if (file.size() > kLargestFileBytes) {
    throw Failure(kInvalidPicture, "图片文件过大，不予装入：超过 " +
                                       std::to_string(kLargestFileBytes >> 20) + " MB。");
  }
  const PictureFormat format = FormatOf(file);
  if (format == PictureFormat::kUnknown) {
    throw Failure(kInvalidPicture, "不是可用的图片文件：只支持 JPEG、PNG、BMP、GIF 和 TIFF。");
  }
  if (!IsComplete(file)) throw Failure(kInvalidPicture, "图片文件不完整。");

  QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                             static_cast<qsizetype>(file.size()));
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, DecoderOf(format));
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  if (!QImageReader::supportedImageFormats().contains(DecoderOf(format))) {
    throw Failure(kInvalidPicture,
                  std::string("本机没有安装 ") + DecoderOf(format) + " 图片的解码组件。");
  }
  RefuseAbsurdSize(reader);
  QImage image = reader.read();
  if (image.isNull()) throw Failure(kInvalidPicture, "图片文件已损坏，无法解码。");
  return image;
}

}  // namespace td
