// What a picture file says about itself, read from its bytes without decoding it. Nothing here
// fails: bytes that are no sound picture give an unknown format, no resolution, or "incomplete".
#pragma once

#include "platform/value.h"

namespace td {

enum class PictureFormat { kUnknown, kJpeg, kPng, kBmp, kGif, kTiff };

[[nodiscard]] PictureFormat FormatOf(const Bytes& file);

// Dots per inch along the axes of the picture as it is shown, that is with the orientation of a
// photograph applied; 0 where the file states none.
struct PictureResolution {
  double x = 0;
  double y = 0;
};
[[nodiscard]] PictureResolution ResolutionOf(const Bytes& file);

// False when a JPEG, GIF or BMP file ends before its picture does. Decoders fill the missing part
// with some colour and report no error. True for the other formats, whose decoders do report it.
[[nodiscard]] bool IsComplete(const Bytes& file);

}  // namespace td
