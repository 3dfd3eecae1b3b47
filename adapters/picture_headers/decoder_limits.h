// What a decoder is asked to take, whatever a picture file claims.
#pragma once

#include <cstddef>

#include "picture_headers/picture_headers.h"

namespace td {

// Pictures whose pixels would take more than this are refused before they are decoded. A picture
// that has to be turned takes twice that for a moment.
inline constexpr std::size_t kLargestDecodedBytes = std::size_t{128} << 20;
inline constexpr std::size_t kLargestFileBytes = std::size_t{64} << 20;

// The format of a file that a decoder may be given. `leastBits` is what it decodes a pixel to at
// least. Fails with kInvalidPicture when the file is none of the formats, ends too early, or is
// larger than the bounds.
[[nodiscard]] PictureFormat RequireDecodable(const Bytes& file, int leastBits);

// Of a picture with so many bits for each of its pixels. Fails with kInvalidPicture.
void RequireDecodedSize(const PixelSize& size, int bitsPerPixel);

}  // namespace td
