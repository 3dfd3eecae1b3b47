#include "render/picture_images.h"

#include <QBuffer>
#include <QCache>
#include <QCryptographicHash>
#include <string_view>

namespace td {
namespace {

constexpr int kCacheKilobytes = 64 * 1024;

QByteArrayView View(const ImagePicture& picture) {
  return {picture.Encoded().data(), static_cast<qsizetype>(picture.Encoded().size())};
}

bool StartsWith(const ImagePicture& picture, std::string_view signature) {
  return View(picture).startsWith(
      QByteArrayView(signature.data(), static_cast<qsizetype>(signature.size())));
}

QByteArray Decodable(const ImagePicture& picture) {
  return QByteArray::fromRawData(reinterpret_cast<const char*>(picture.Encoded().data()),
                                 static_cast<qsizetype>(picture.Encoded().size()));
}

}  // namespace

QByteArray ContentKey(const ImagePicture& picture) {
  return QCryptographicHash::hash(Decodable(picture), QCryptographicHash::Sha256);
}

QImage DecodedImage(const ImagePicture& picture) {
  static QCache<QByteArray, QImage> cache(kCacheKilobytes);
  const QByteArray key = ContentKey(picture);
  if (const QImage* known = cache.object(key)) return *known;
  QImage image = QImage::fromData(Decodable(picture));
  cache.insert(key, new QImage(image), static_cast<qsizetype>(image.sizeInBytes() / 1024 + 1));
  return image;
}

Bytes PngOf(const QImage& image) {
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  if (image.isNull() || !image.save(&buffer, "PNG")) return {};
  const auto* first = reinterpret_cast<const std::byte*>(png.constData());
  return {first, first + png.size()};
}

bool IsJpeg(const ImagePicture& picture) {
  return StartsWith(picture, "\xFF\xD8\xFF");
}

}  // namespace td
