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

std::string Uri(const char* type, const QByteArray& bytes) {
  return std::string("data:image/") + type + ";base64," + bytes.toBase64().toStdString();
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

bool IsJpeg(const ImagePicture& picture) {
  return StartsWith(picture, "\xFF\xD8\xFF");
}

std::string DataUri(const ImagePicture& picture) {
  using std::string_view_literals::operator""sv;
  if (IsJpeg(picture)) return Uri("jpeg", Decodable(picture));
  if (StartsWith(picture, "\x89PNG\r\n\x1A\n"sv)) return Uri("png", Decodable(picture));
  const QImage image = DecodedImage(picture);
  if (image.isNull()) return {};
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) return {};
  return Uri("png", png);
}

}  // namespace td
