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

int DecodedBits(const QImageReader& reader, PictureFormat format) {
  // Only these have deeper pixels; and Qt answers a damaged JPEG file with a number that is no
  // image format at all.
  if (format != PictureFormat::kPng && format != PictureFormat::kTiff) return kLeastBits;
  const QImage::Format pixels = reader.imageFormat();
  if (pixels <= QImage::Format_Invalid || pixels >= QImage::NImageFormats) return kLeastBits;
  return std::max(kLeastBits, int{QImage::toPixelFormat(pixels).bitsPerPixel()});
}

// The image is null where the decoder gives up.
DecodedPicture Decode(const Bytes& file, PictureFormat format) {
  QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                             static_cast<qsizetype>(file.size()));
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, DecoderOf(format));
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  if (!reader.canRead()) return {};
  // Once more with what the decoder has understood, which needn't be what the header announced.
  RequireDecodedSize({reader.size().width(), reader.size().height()}, DecodedBits(reader, format));
  QImage image = reader.read();
  return {std::move(image), reader.transformation() != QImageIOHandler::TransformationNone};
}

// As far as it goes: what the decoder takes for damage behind the picture is cut off. If it doesn't
// like one of the later scans, which make the picture finer, the first one is left.
DecodedPicture DecodeJpeg(const Bytes& file) {
  const JpegParts parts = JpegPartsOf(file);
  DecodedPicture picture;
  if (parts.isClosed) picture = Decode(file, PictureFormat::kJpeg);
  for (const std::size_t end : {parts.end, parts.firstScanEnd}) {
    if (!picture.image.isNull()) break;
    Bytes mended(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(end));
    mended.insert(mended.end(), {std::byte{0xFF}, std::byte{0xD9}});
    picture = Decode(mended, PictureFormat::kJpeg);
    picture.mended = true;
  }
  return picture;
}

}  // namespace

DecodedPicture DecodePicture(const Bytes& file) {
  const PictureFormat format = RequireDecodable(file, kLeastBits);

  DecodedPicture picture = format == PictureFormat::kJpeg ? DecodeJpeg(file) : Decode(file, format);
  if (picture.image.isNull()) throw CannotDecode(format);
  return picture;
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
