// What a picture file says about itself, read from its bytes without decoding it. Nothing here
// fails: bytes that are no sound picture give an unknown format, no size, no resolution, or
// "incomplete".
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/value.h"

namespace td {

enum class PictureFormat { kUnknown, kJpeg, kPng, kBmp, kGif, kTiff };

[[nodiscard]] PictureFormat FormatOf(const Bytes& file);

// The size that the file announces, in pixels as they are stored: whatever it claims, so that a
// claim can be judged before a decoder acts on it. 0 by 0 where the file does not say.
struct PixelSize {
  std::int64_t width = 0;
  std::int64_t height = 0;
};
[[nodiscard]] PixelSize SizeOf(const Bytes& file);

// Dots per inch along the axes of the picture as it is shown, that is with the orientation of a
// photograph applied; 0 where the file states none.
struct PictureResolution {
  double x = 0;
  double y = 0;
};
[[nodiscard]] PictureResolution ResolutionOf(const Bytes& file);

// How the pixels of a photograph lie, 1 to 8 as its maker numbers it: 1 is upright, from 5 on width
// and height change places. 1 where the file states nothing, or something else.
[[nodiscard]] int OrientationOf(const Bytes& file);

// Where the picture of a JPEG file ends, however damaged the file is behind it: places in front of
// which the bytes, closed by an end marker, are a file of their own. Both are 0 where the file
// holds no coded data at all.
struct JpegParts {
  std::size_t end = 0;           // of all that belongs to the picture
  std::size_t firstScanEnd = 0;  // of its first scan: a coarse picture, or all of it
  bool isClosed = false;         // by an end marker at `end`
};
[[nodiscard]] JpegParts JpegPartsOf(const Bytes& file);

// False when a file ends before its picture does, a JPEG file before its coded data begin. Most
// decoders fill the missing part with some colour and report no error, and the PNG one first
// reserves what a cut part claims to hold. Always true for TIFF files, whose parts stand in any
// order.
[[nodiscard]] bool IsComplete(const Bytes& file);

}  // namespace td
