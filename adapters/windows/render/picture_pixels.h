// Picture files as pixels that devices take.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "page_document/affine_map.h"
#include "page_document/pictures.h"

namespace Gdiplus {
class Bitmap;
}

namespace td {

// Rows from top to bottom, 0xAARRGGBB, colours not multiplied by their opacity.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> data;

  [[nodiscard]] bool IsOpaque() const;
};
using PixelsRef = std::shared_ptr<const Pixels>;

// The whole picture. Nothing if it can't be decoded, which its maker has ruled out. The last ones
// are kept, up to 64 MB.
[[nodiscard]] PixelsRef PixelsOf(const ImagePicture& picture);

// The picture smaller, each pixel the mean of those that fall on it: a device that leaves out rows
// would lose thin lines. Sizes above the picture's own leave it as it is.
[[nodiscard]] PixelsRef Reduced(const PixelsRef& pixels, int width, int height);

// So many columns and rows, each pixel that of the picture on which its middle falls: the map takes
// places among them to places among the picture's pixels. What falls beside it is transparent.
[[nodiscard]] PixelsRef Turned(const Pixels& pixels, const AffineMap& toPicture, int columns,
                               int rows);

// All pixels of a picture of the system's library. Nothing if it fails.
[[nodiscard]] std::optional<Pixels> ReadPixels(Gdiplus::Bitmap& bitmap);

// As a PNG file of a resolution. Fails with kOutOfMemory.
[[nodiscard]] Bytes ToPng(const Pixels& pixels, double dotsPerInch);

}  // namespace td
