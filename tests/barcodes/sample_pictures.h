// Picture files for the tests, made in memory.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/value.h"

namespace td {

[[nodiscard]] Bytes BytesOf(std::string_view text);

// A picture whose left half is red and right half blue, as "jpeg", "png", "bmp" or "tiff". A
// resolution of 0 leaves the encoder's own.
[[nodiscard]] Bytes SamplePicture(const char* format, int width, int height,
                                  double dotsPerInch = 0);
// 256 by 256 pixels of which no two neighbours are equal, so that the coded data are much more than
// the headers; `scans` are several where they make the picture finer one after the other.
enum class Scans { kOne, kSeveral };
[[nodiscard]] Bytes DetailedJpeg(Scans scans);
// 10 by 6 pixels.
[[nodiscard]] Bytes SampleGif();

// The JPEG file with its JFIF segment, and so its resolution, replaced by an Exif segment.
[[nodiscard]] Bytes WithExif(const Bytes& jpeg, std::uint16_t orientation,
                             std::uint32_t dotsPerInchX, std::uint32_t dotsPerInchY);

// Small files that announce 60,000 by 60,000 pixels.
[[nodiscard]] Bytes PngBomb();
[[nodiscard]] Bytes GifBomb();
[[nodiscard]] Bytes BmpBomb();
[[nodiscard]] Bytes JpegBomb();
[[nodiscard]] Bytes TiffBomb();

[[nodiscard]] Bytes Shortened(const Bytes& file, std::size_t size);

}  // namespace td
