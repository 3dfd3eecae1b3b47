#include "windows/pictures/picture_decoder.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "picture_headers/decoder_limits.h"
#include "platform/failure.h"
#include "windows/render/gdiplus_session.h"
#include "windows/render/picture_pixels.h"

// Behind the system's other headers.
#include <shlwapi.h>

namespace td {
namespace {

constexpr int kBitsOfAPixel = 32;

// How a picture must be turned to stand upright; nothing if it does.
std::optional<Gdiplus::RotateFlipType> TurnOf(int orientation) {
  switch (orientation) {
    case 2:
      return Gdiplus::RotateNoneFlipX;
    case 3:
      return Gdiplus::Rotate180FlipNone;
    case 4:
      return Gdiplus::Rotate180FlipX;
    case 5:
      return Gdiplus::Rotate90FlipX;
    case 6:
      return Gdiplus::Rotate90FlipNone;
    case 7:
      return Gdiplus::Rotate270FlipX;
    case 8:
      return Gdiplus::Rotate270FlipNone;
    default:
      return std::nullopt;
  }
}

struct Decoded {
  Pixels pixels;
  bool turned = false;
};

// Nothing where the decoder gives up.
std::optional<Decoded> Decode(const Bytes& file) {
  const GdiplusSession session;
  const StreamOwner stream(SHCreateMemStream(reinterpret_cast<const BYTE*>(file.data()),
                                             static_cast<UINT>(file.size())));
  if (!session.IsOpen() || !stream) return std::nullopt;
  Gdiplus::Bitmap bitmap(stream.get());
  if (bitmap.GetLastStatus() != Gdiplus::Ok) return std::nullopt;
  // Once more with what the decoder has understood, which needn't be what the header announced.
  RequireDecodedSize({bitmap.GetWidth(), bitmap.GetHeight()}, kBitsOfAPixel);
  Decoded decoded;
  if (const auto turn = TurnOf(OrientationOf(file))) {
    decoded.turned = true;
    bitmap.RotateFlip(*turn);
  }
  std::optional<Pixels> pixels = ReadPixels(bitmap);
  if (!pixels) return std::nullopt;
  decoded.pixels = *std::move(pixels);
  return decoded;
}

Bytes Closed(const Bytes& jpeg, std::size_t end) {
  Bytes closed(jpeg.begin(), jpeg.begin() + static_cast<std::ptrdiff_t>(end));
  closed.insert(closed.end(), {std::byte{0xFF}, std::byte{0xD9}});
  return closed;
}

}  // namespace

std::shared_ptr<const ImagePicture> MakePicture(Bytes file) {
  const PictureFormat format = RequireDecodable(file, kBitsOfAPixel);

  const PictureResolution resolution = ResolutionOf(file);
  const JpegParts parts = format == PictureFormat::kJpeg ? JpegPartsOf(file) : JpegParts{};
  std::optional<Decoded> decoded;
  bool isMended = false;
  if (format != PictureFormat::kJpeg || parts.isClosed) decoded = Decode(file);
  if (format == PictureFormat::kJpeg) {
    for (const std::size_t end : {parts.end, parts.firstScanEnd}) {
      if (decoded) break;
      isMended = true;
      decoded = Decode(Closed(file, end));
    }
  }
  if (!decoded) throw Failure(kInvalidPicture, "图片文件已损坏，无法解码。");
  // Outputs don't look at orientations, and some put the bytes of the file into their own.
  if (decoded->turned || isMended) file = ToPng(decoded->pixels, 96);
  return std::make_shared<ImagePicture>(std::move(file), decoded->pixels.width,
                                        decoded->pixels.height, resolution.x, resolution.y);
}

}  // namespace td
