#include "picture_headers/picture_headers.h"

#include <cmath>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "picture_headers/byte_view.h"

namespace td {
namespace {

using namespace std::string_view_literals;
using Order = ByteView::Order;

constexpr double kCentimetresPerInch = 2.54;
constexpr double kMetresPerInch = 0.0254;

// --- TIFF directories, which stand in TIFF files and in the Exif segment of JPEG files

struct Directory {
  PixelSize size;
  PictureResolution resolution;
  int orientation = 1;  // 5 to 8 swap the axes
};

double RationalAt(const ByteView& tiff, std::size_t at) {
  const std::uint32_t denominator = tiff.U32(at + 4);
  return denominator == 0 ? 0.0 : static_cast<double>(tiff.U32(at)) / denominator;
}

// A whole number of an entry, which may be stored in two bytes or in four.
std::uint32_t NumberAt(const ByteView& tiff, std::size_t entry) {
  constexpr int kShort = 3;
  return tiff.U16(entry + 2) == kShort ? tiff.U16(entry + 8) : tiff.U32(entry + 8);
}

Directory FirstDirectory(std::span<const std::byte> bytes) {
  const ByteView probe(bytes);
  const ByteView tiff(bytes, probe.Holds(0, "II") ? Order::kLittleEndian : Order::kBigEndian);
  Directory directory;
  int unit = 2;  // inches, unless stated otherwise
  const std::size_t start = tiff.U32(4);
  const int entries = tiff.U16(start);
  for (int i = 0; i < entries; ++i) {
    const std::size_t entry = start + 2 + 12 * static_cast<std::size_t>(i);
    switch (tiff.U16(entry)) {
      case 0x0100:
        directory.size.width = NumberAt(tiff, entry);
        break;
      case 0x0101:
        directory.size.height = NumberAt(tiff, entry);
        break;
      case 0x0112:
        directory.orientation = static_cast<int>(NumberAt(tiff, entry));
        break;
      case 0x011A:
        directory.resolution.x = RationalAt(tiff, tiff.U32(entry + 8));
        break;
      case 0x011B:
        directory.resolution.y = RationalAt(tiff, tiff.U32(entry + 8));
        break;
      case 0x0128:
        unit = static_cast<int>(NumberAt(tiff, entry));
        break;
      default:
        break;
    }
  }
  if (unit == 3) {
    directory.resolution.x *= kCentimetresPerInch;
    directory.resolution.y *= kCentimetresPerInch;
  } else if (unit != 2) {
    directory.resolution = {};
  }
  return directory;
}

PictureResolution AsShown(PictureResolution resolution, int orientation) {
  if (orientation >= 5 && orientation <= 8) std::swap(resolution.x, resolution.y);
  return resolution;
}

// --- JPEG

constexpr std::uint8_t kEndOfImage = 0xD9;
constexpr std::uint8_t kStartOfScan = 0xDA;

bool StandsAlone(std::uint8_t marker) {  // has no length behind it
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

// The place of the next marker's code from `at` on, skipping coded data; Size() if there is none.
std::size_t NextMarker(const ByteView& jpeg, std::size_t at) {
  for (; at + 1 < jpeg.Size(); ++at) {
    const std::uint8_t code = jpeg.U8(at + 1);
    const bool isMarker = jpeg.U8(at) == 0xFF && code != 0x00 && code != 0xFF;
    if (isMarker && !(code >= 0xD0 && code <= 0xD7)) return at + 1;
  }
  return jpeg.Size();
}

// The place behind the segment whose marker code stands at `at`.
std::size_t SegmentEnd(const ByteView& jpeg, std::size_t at) {
  return StandsAlone(jpeg.U8(at)) ? at + 1 : at + 1 + jpeg.U16(at + 1);
}

bool StartsFrame(std::uint8_t marker) {  // its segment holds the size
  const bool isOther = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
  return marker >= 0xC0 && marker <= 0xCF && !isOther;
}

PixelSize JpegSize(const ByteView& jpeg) {
  std::size_t at = NextMarker(jpeg, 0);
  while (at < jpeg.Size() && !StartsFrame(jpeg.U8(at))) {
    at = NextMarker(jpeg, SegmentEnd(jpeg, at));
  }
  return {jpeg.U16(at + 6), jpeg.U16(at + 4)};
}

// What a JPEG file states in its own way, and in that of photographs.
struct JpegStatement {
  PictureResolution stated;
  Directory exif;
};

JpegStatement ReadStatement(const ByteView& jpeg) {
  JpegStatement statement;
  auto& [stated, exif] = statement;
  for (std::size_t at = NextMarker(jpeg, 0); at < jpeg.Size() && jpeg.U8(at) != kStartOfScan;
       at = NextMarker(jpeg, SegmentEnd(jpeg, at))) {
    const std::size_t content = at + 3;
    if (jpeg.Holds(content, "JFIF\0"sv)) {
      const int unit = jpeg.U8(content + 7);
      const double scale = unit == 1 ? 1 : unit == 2 ? kCentimetresPerInch : 0;
      stated = {jpeg.U16(content + 8) * scale, jpeg.U16(content + 10) * scale};
    } else if (jpeg.Holds(content, "Exif\0\0"sv)) {
      exif = FirstDirectory(jpeg.From(content + 6));
    }
  }
  return statement;
}

PictureResolution JpegResolution(const ByteView& jpeg) {
  const auto [stated, exif] = ReadStatement(jpeg);
  return AsShown(stated.x > 0 ? stated : exif.resolution, exif.orientation);
}

bool MayFollowAScan(std::uint8_t marker) {  // and belong to the same picture
  switch (marker) {
    case 0xC4:  // tables
    case 0xCC:
    case 0xDB:
    case 0xDC:  // number of lines
    case 0xDD:  // restart interval
    case 0xFE:  // comment
    case kStartOfScan:
      return true;
    default:
      return StandsAlone(marker) ? marker == 0x01 : marker >= 0xE0 && marker <= 0xEF;
  }
}

// --- PNG

constexpr std::size_t kFirstPngChunk = 8;

std::size_t NextPngChunk(const ByteView& png, std::size_t at) {
  constexpr std::size_t kAroundData = 12;  // length, name and checksum
  return at + kAroundData + png.U32(at);
}

PictureResolution PngResolution(const ByteView& png) {
  for (std::size_t at = kFirstPngChunk; at < png.Size() && !png.Holds(at + 4, "IDAT");
       at = NextPngChunk(png, at)) {
    constexpr int kPerMetre = 1;
    if (png.Holds(at + 4, "pHYs") && png.U8(at + 16) == kPerMetre) {
      return {png.U32(at + 8) * kMetresPerInch, png.U32(at + 12) * kMetresPerInch};
    }
  }
  return {};
}

bool PngIsComplete(const ByteView& png) {
  std::size_t at = kFirstPngChunk;
  while (at < png.Size() && !png.Holds(at + 4, "IEND")) at = NextPngChunk(png, at);
  return NextPngChunk(png, at) <= png.Size();
}

// --- BMP

constexpr std::size_t kBmpInfo = 14;        // place of the info header, which begins with its size
constexpr std::uint32_t kBmpInfoSize = 40;  // of the first one that states a resolution

PixelSize BmpSize(const ByteView& bmp) {
  if (bmp.U32(kBmpInfo) < kBmpInfoSize) return {bmp.U16(18), bmp.U16(20)};
  const std::int64_t height = bmp.I32(22);  // negative when the rows go from the top down
  return {bmp.I32(18), std::abs(height)};
}

PictureResolution BmpResolution(const ByteView& bmp) {
  if (bmp.U32(kBmpInfo) < kBmpInfoSize) return {};
  return {bmp.I32(38) * kMetresPerInch, bmp.I32(42) * kMetresPerInch};
}

bool BmpIsComplete(const ByteView& bmp) {
  if (bmp.U32(kBmpInfo) < kBmpInfoSize) return true;
  constexpr std::uint32_t kPlain = 0;
  constexpr std::uint32_t kBitFields = 3;
  const std::uint32_t compression = bmp.U32(30);
  if (compression != kPlain && compression != kBitFields) return true;
  const PixelSize size = BmpSize(bmp);
  const double rowBytes = std::ceil(static_cast<double>(size.width) * bmp.U16(28) / 32) * 4;
  return bmp.U32(10) + rowBytes * static_cast<double>(size.height) <=
         static_cast<double>(bmp.Size());
}

// --- GIF

// The place behind a chain of data blocks, of which an empty one is the last.
std::size_t BlocksEnd(const ByteView& gif, std::size_t at) {
  while (at < gif.Size() && gif.U8(at) != 0) at += 1U + gif.U8(at);
  return at + 1;
}

std::size_t ColourTableSize(std::uint8_t flags) {
  return (flags & 0x80) != 0 ? 3U << ((flags & 0x07) + 1) : 0U;
}

bool GifIsComplete(const ByteView& gif) {
  constexpr std::uint8_t kExtension = 0x21;
  constexpr std::uint8_t kImage = 0x2C;
  std::size_t at = 13 + ColourTableSize(gif.U8(10));
  while (gif.U8(at) == kExtension) at = BlocksEnd(gif, at + 2);
  if (gif.U8(at) != kImage) return false;
  return BlocksEnd(gif, at + 11 + ColourTableSize(gif.U8(at + 9))) <= gif.Size();
}

}  // namespace

PictureFormat FormatOf(const Bytes& file) {
  const ByteView bytes(file);
  if (bytes.Holds(0, "\xFF\xD8\xFF"sv)) return PictureFormat::kJpeg;
  if (bytes.Holds(0, "\x89PNG\r\n\x1A\n"sv)) return PictureFormat::kPng;
  if (bytes.Holds(0, "BM"sv)) return PictureFormat::kBmp;
  if (bytes.Holds(0, "GIF8"sv)) return PictureFormat::kGif;
  if (bytes.Holds(0, "II*\0"sv) || bytes.Holds(0, "MM\0*"sv)) return PictureFormat::kTiff;
  return PictureFormat::kUnknown;
}

PixelSize SizeOf(const Bytes& file) {
  const ByteView big(file);
  const ByteView little(file, Order::kLittleEndian);
  switch (FormatOf(file)) {
    case PictureFormat::kJpeg:
      return JpegSize(big);
    case PictureFormat::kPng:
      return {big.U32(16), big.U32(20)};
    case PictureFormat::kBmp:
      return BmpSize(little);
    case PictureFormat::kGif:
      return {little.U16(6), little.U16(8)};
    case PictureFormat::kTiff:
      return FirstDirectory(file).size;
    case PictureFormat::kUnknown:
      break;
  }
  return {};
}

PictureResolution ResolutionOf(const Bytes& file) {
  switch (FormatOf(file)) {
    case PictureFormat::kJpeg:
      return JpegResolution(ByteView(file));
    case PictureFormat::kPng:
      return PngResolution(ByteView(file));
    case PictureFormat::kBmp:
      return BmpResolution(ByteView(file, Order::kLittleEndian));
    case PictureFormat::kTiff: {
      const Directory directory = FirstDirectory(file);
      return AsShown(directory.resolution, directory.orientation);
    }
    case PictureFormat::kGif:
    case PictureFormat::kUnknown:
      break;
  }
  return {};
}

int OrientationOf(const Bytes& file) {
  int orientation = 1;
  const PictureFormat format = FormatOf(file);
  if (format == PictureFormat::kJpeg) orientation = ReadStatement(ByteView(file)).exif.orientation;
  if (format == PictureFormat::kTiff) orientation = FirstDirectory(file).orientation;
  return orientation >= 1 && orientation <= 8 ? orientation : 1;
}

JpegParts JpegPartsOf(const Bytes& file) {
  const ByteView jpeg(file);
  JpegParts parts;
  bool hasScan = false;
  std::size_t at = NextMarker(jpeg, 0);
  while (at < jpeg.Size()) {
    const std::uint8_t marker = jpeg.U8(at);
    const std::size_t markerStart = at - 1;
    const std::size_t content = SegmentEnd(jpeg, at);
    parts.isClosed = marker == kEndOfImage;
    const bool isCut = content >= jpeg.Size();
    if (parts.isClosed || (hasScan && (isCut || !MayFollowAScan(marker)))) {
      parts.end = markerStart;
      break;
    }
    if (isCut) break;  // without a scan there is no picture
    at = NextMarker(jpeg, content);
    if (marker != kStartOfScan) continue;
    parts.end = at < jpeg.Size() ? at - 1 : jpeg.Size();
    if (!hasScan) parts.firstScanEnd = parts.end;
    hasScan = hasScan || parts.end > content;
  }
  if (!hasScan) parts.end = 0;
  return parts;
}

bool IsComplete(const Bytes& file) {
  switch (FormatOf(file)) {
    case PictureFormat::kJpeg:
      return JpegPartsOf(file).end > 0;
    case PictureFormat::kBmp:
      return BmpIsComplete(ByteView(file, Order::kLittleEndian));
    case PictureFormat::kGif:
      return GifIsComplete(ByteView(file, Order::kLittleEndian));
    case PictureFormat::kPng:
      return PngIsComplete(ByteView(file));
    case PictureFormat::kTiff:
    case PictureFormat::kUnknown:
      break;
  }
  return true;
}

}  // namespace td
