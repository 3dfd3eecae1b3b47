#include "windows/render/picture_pixels.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <list>
#include <optional>

#include "platform/failure.h"
#include "windows/render/gdiplus_session.h"

// Behind the system's other headers.
#include <shlwapi.h>

namespace td {
namespace {

constexpr std::size_t kKeptBytes = 64 << 20;
constexpr std::uint32_t kOpacity = 0xFF000000;

StreamOwner StreamOf(const Bytes& bytes) {
  return StreamOwner(SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()),
                                       static_cast<UINT>(bytes.size())));
}

PixelsRef Decode(const Bytes& encoded) {
  const GdiplusSession session;
  const StreamOwner stream = StreamOf(encoded);
  if (!session.IsOpen() || !stream) return nullptr;
  Gdiplus::Bitmap bitmap(stream.get());
  if (bitmap.GetLastStatus() != Gdiplus::Ok) return nullptr;
  std::optional<Pixels> pixels = ReadPixels(bitmap);
  return pixels ? std::make_shared<const Pixels>(*std::move(pixels)) : nullptr;
}

// The pictures that were decoded last. A page asks for the same ones again and again.
class Kept {
 public:
  PixelsRef Find(const ImagePicture& picture) {
    const auto found = std::ranges::find_if(
        entries_, [&picture](const Entry& entry) { return entry.encoded == picture.Encoded(); });
    if (found == entries_.end()) return nullptr;
    entries_.splice(entries_.begin(), entries_, found);
    return entries_.front().pixels;
  }

  void Add(const ImagePicture& picture, const PixelsRef& pixels) {
    entries_.push_front({picture.Encoded(), pixels});
    std::size_t bytes = 0;
    for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
      bytes += entry->encoded.size() + entry->pixels->data.size() * sizeof(std::uint32_t);
      if (bytes <= kKeptBytes || entry == entries_.begin()) continue;
      entries_.erase(entry, entries_.end());
      return;
    }
  }

 private:
  struct Entry {
    Bytes encoded;
    PixelsRef pixels;
  };
  std::list<Entry> entries_;
};

// Some of a row's or a column's pixels, and how much of each falls on one that is made of them.
struct Share {
  int first;
  int last;
  double ofFirst;
  double ofLast;
};

std::vector<Share> SharesOf(int from, int to) {
  std::vector<Share> shares;
  const double step = static_cast<double>(from) / to;
  for (int i = 0; i < to; ++i) {
    const double begin = i * step;
    const double end = std::min<double>(from, (i + 1) * step);
    const int first = static_cast<int>(begin);
    const int last = std::min(from - 1, static_cast<int>(end));
    shares.push_back({first, last, std::min<double>(first + 1, end) - begin, end - last});
  }
  return shares;
}

double WeightOf(const Share& share, int at) {
  if (at == share.first) return share.ofFirst;
  return at == share.last ? share.ofLast : 1;
}

}  // namespace

bool Pixels::IsOpaque() const {
  return std::ranges::all_of(data,
                             [](std::uint32_t pixel) { return (pixel & kOpacity) == kOpacity; });
}

std::optional<Pixels> ReadPixels(Gdiplus::Bitmap& bitmap) {
  Pixels pixels{static_cast<int>(bitmap.GetWidth()), static_cast<int>(bitmap.GetHeight()), {}};
  const Gdiplus::Rect whole(0, 0, pixels.width, pixels.height);
  Gdiplus::BitmapData locked;
  if (bitmap.LockBits(&whole, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &locked) !=
      Gdiplus::Ok) {
    return std::nullopt;
  }
  const auto width = static_cast<std::size_t>(pixels.width);
  const auto height = static_cast<std::size_t>(pixels.height);
  pixels.data.resize(width * height);
  for (std::size_t row = 0; row < height; ++row) {
    std::memcpy(&pixels.data[row * width],
                static_cast<const std::byte*>(locked.Scan0) +
                    static_cast<std::ptrdiff_t>(row) * locked.Stride,
                width * sizeof(std::uint32_t));
  }
  bitmap.UnlockBits(&locked);
  return pixels;
}

PixelsRef PixelsOf(const ImagePicture& picture) {
  static Kept kept;
  if (PixelsRef known = kept.Find(picture)) return known;
  PixelsRef pixels = Decode(picture.Encoded());
  if (pixels) kept.Add(picture, pixels);
  return pixels;
}

PixelsRef Reduced(const PixelsRef& pixels, int width, int height) {
  width = std::clamp(width, 1, pixels->width);
  height = std::clamp(height, 1, pixels->height);
  if (width == pixels->width && height == pixels->height) return pixels;
  const std::vector<Share> columns = SharesOf(pixels->width, width);
  const std::vector<Share> rows = SharesOf(pixels->height, height);
  auto reduced = std::make_shared<Pixels>();
  reduced->width = width;
  reduced->height = height;
  reduced->data.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  for (const Share& row : rows) {
    for (const Share& column : columns) {
      std::array<double, 4> sums{};  // blue, green, red, opacity
      double whole = 0;
      for (int y = row.first; y <= row.last; ++y) {
        const std::uint32_t* line =
            &pixels->data[static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels->width)];
        for (int x = column.first; x <= column.last; ++x) {
          const double weight = WeightOf(row, y) * WeightOf(column, x);
          const std::uint32_t pixel = line[x];
          const double opacity = weight * (pixel >> 24U);
          for (unsigned i = 0; i < 3; ++i) sums[i] += opacity * ((pixel >> (8 * i)) & 0xFFU);
          sums[3] += opacity;
          whole += weight;
        }
      }
      const auto part = [](double value) { return static_cast<std::uint32_t>(value + 0.5); };
      std::uint32_t pixel = part(sums[3] / whole) << 24U;
      for (unsigned i = 0; i < 3 && sums[3] > 0; ++i) pixel |= part(sums[i] / sums[3]) << (8 * i);
      reduced->data.push_back(pixel);
    }
  }
  return reduced;
}

PixelsRef Turned(const Pixels& pixels, const AffineMap& toPicture, int columns, int rows) {
  auto turned = std::make_shared<Pixels>();
  turned->width = columns;
  turned->height = rows;
  turned->data.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const PlanePoint place = toPicture({column + 0.5, row + 0.5});
      const bool isOnIt =
          place.x >= 0 && place.y >= 0 && place.x < pixels.width && place.y < pixels.height;
      turned->data.push_back(isOnIt ? pixels.data[static_cast<std::size_t>(place.y) *
                                                      static_cast<std::size_t>(pixels.width) +
                                                  static_cast<std::size_t>(place.x)]
                                    : 0);
    }
  }
  return turned;
}

Bytes ToPng(const Pixels& pixels, double dotsPerInch) {
  const GdiplusSession session;
  const StreamOwner stream(SHCreateMemStream(nullptr, 0));
  if (!session.IsOpen() || !stream) throw Failure(kOutOfMemory, "内存不足，无法生成图像。");
  // The library's own encoder for files of this kind.
  constexpr CLSID kPngEncoder = {
      0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
  auto* data = const_cast<std::uint32_t*>(pixels.data.data());
  Gdiplus::Bitmap bitmap(pixels.width, pixels.height, pixels.width * 4,
                         pixels.IsOpaque() ? PixelFormat32bppRGB : PixelFormat32bppARGB,
                         reinterpret_cast<BYTE*>(data));
  bitmap.SetResolution(static_cast<Gdiplus::REAL>(dotsPerInch),
                       static_cast<Gdiplus::REAL>(dotsPerInch));
  STATSTG state{};
  const bool isWritten = bitmap.Save(stream.get(), &kPngEncoder, nullptr) == Gdiplus::Ok &&
                         SUCCEEDED(stream->Stat(&state, STATFLAG_NONAME));
  if (!isWritten) throw Failure(kOutOfMemory, "内存不足，无法生成图像。");
  Bytes png(static_cast<std::size_t>(state.cbSize.QuadPart));
  LARGE_INTEGER begin{};
  ULONG count = 0;
  stream->Seek(begin, STREAM_SEEK_SET, nullptr);
  stream->Read(png.data(), static_cast<ULONG>(png.size()), &count);
  png.resize(count);
  return png;
}

}  // namespace td
