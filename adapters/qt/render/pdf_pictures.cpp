#include "render/pdf_pictures.h"

#include <optional>
#include <string_view>

#include "render/picture_images.h"

namespace td {
namespace {

std::string Entries(int width, int height, std::string_view colours, int bits) {
  return "/Type/XObject/Subtype/Image/Width " + std::to_string(width) + "/Height " +
         std::to_string(height) + "/ColorSpace/" + std::string(colours) + "/BitsPerComponent " +
         std::to_string(bits);
}

std::string_view Encoded(const ImagePicture& picture) {
  return {reinterpret_cast<const char*>(picture.Encoded().data()), picture.Encoded().size()};
}

// The entries of a JPEG file that readers of PDF show as other programs do: bytes of grey or of the
// usual three components. Nothing for others.
std::optional<std::string> JpegEntries(const ImagePicture& picture) {
  const std::string_view file = Encoded(picture);
  const auto byte = [&file](std::size_t at) {
    return at < file.size() ? static_cast<unsigned char>(file[at]) : 0;
  };
  const auto number = [&byte](std::size_t at) { return byte(at) << 8 | byte(at + 1); };
  std::size_t at = 2;
  while (at + 4 <= file.size() && byte(at) == 0xFF) {
    const int marker = byte(at + 1);
    const bool isFill = marker == 0xFF;
    const bool isFrame = marker >= 0xC0 && marker <= 0xC2;  // plain, extended, progressive
    if (isFrame) {
      const int bits = byte(at + 4);
      const int components = byte(at + 9);
      const bool isRgb = byte(at + 10) == 'R';
      const bool isWhole =
          number(at + 7) == picture.WidthPixels() && number(at + 5) == picture.HeightPixels();
      if (bits != 8 || (components != 1 && components != 3) || isRgb || !isWhole) {
        return std::nullopt;
      }
      return Entries(picture.WidthPixels(), picture.HeightPixels(),
                     components == 1 ? "DeviceGray" : "DeviceRGB", bits) +
             "/Filter/DCTDecode";
    }
    at += isFill ? 1 : 2 + static_cast<std::size_t>(number(at + 2));
  }
  return std::nullopt;
}

// The lines of an image without the bytes that fill them up in memory.
std::string Lines(const QImage& image) {
  const std::size_t length =
      (static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.depth()) + 7) / 8;
  std::string lines;
  lines.reserve(length * static_cast<std::size_t>(image.height()));
  for (int line = 0; line < image.height(); ++line) {
    lines.append(reinterpret_cast<const char*>(image.constScanLine(line)), length);
  }
  return lines;
}

bool IsBlackAndWhite(const QImage& image) {
  return image.depth() == 1 && image.colorCount() == 2 &&
         ((image.color(0) == qRgb(0, 0, 0) && image.color(1) == qRgb(255, 255, 255)) ||
          (image.color(1) == qRgb(0, 0, 0) && image.color(0) == qRgb(255, 255, 255)));
}

}  // namespace

int PdfPictures::NumberOf(const ImagePicture& picture) {
  const auto [known, isNew] = numbers_.try_emplace(ContentKey(picture), 0);
  if (isNew) known->second = PutPicture(picture);
  return known->second;
}

int PdfPictures::PutPicture(const ImagePicture& picture) {
  if (IsJpeg(picture)) {
    if (const std::optional<std::string> entries = JpegEntries(picture)) {
      const int number = file_.Reserve();
      file_.PutEncoded(number, *entries, Encoded(picture));
      return number;
    }
  }
  const QImage image = DecodedImage(picture);
  return image.isNull() ? 0 : PutPixels(image);
}

int PdfPictures::PutPixels(const QImage& image) {
  std::string entries;
  std::string bytes;
  if (IsBlackAndWhite(image)) {
    entries = Entries(image.width(), image.height(), "DeviceGray", 1);
    if (qGray(image.color(0)) != 0) entries += "/Decode[1 0]";
    bytes = Lines(image.convertToFormat(QImage::Format_Mono));
  } else if (!image.hasAlphaChannel() && image.isGrayscale()) {
    entries = Entries(image.width(), image.height(), "DeviceGray", 8);
    bytes = Lines(image.convertToFormat(QImage::Format_Grayscale8));
  } else {
    entries = Entries(image.width(), image.height(), "DeviceRGB", 8);
    bytes = Lines(image.convertToFormat(QImage::Format_RGB888));
  }
  entries += OpacityEntry(image);
  const int number = file_.Reserve();
  file_.PutStream(number, entries, bytes);
  return number;
}

// Nothing for a picture without a transparent pixel: what is transparent costs a printer much.
std::string PdfPictures::OpacityEntry(const QImage& image) {
  if (!image.hasAlphaChannel()) return {};
  const std::string opacity = Lines(image.convertToFormat(QImage::Format_Alpha8));
  if (opacity.find_first_not_of('\xFF') == std::string::npos) return {};
  const int number = file_.Reserve();
  file_.PutStream(number, Entries(image.width(), image.height(), "DeviceGray", 8), opacity);
  return "/SMask " + Reference(number);
}

}  // namespace td
