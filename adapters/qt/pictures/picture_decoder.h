// From the bytes of a picture file to pixels.
#pragma once

#include <QImage>

#include "picture_headers/decoder_limits.h"
#include "platform/value.h"

namespace td {

struct DecodedPicture {
  QImage image;
  bool turned = false;  // the pixels lie otherwise than in the file, as its orientation asked
  bool mended = false;  // other decoders may make less of the file, or nothing
};

// Decodes a JPEG, PNG, BMP, GIF or TIFF file, known by its first bytes: the first picture or page
// in it. A JPEG file that is damaged, or ends, behind the beginning of its coded data is decoded as
// far as it goes. Fails with kInvalidPicture when it is none of them, is damaged otherwise, ends
// too early, or is larger than the bounds.
[[nodiscard]] DecodedPicture DecodePicture(const Bytes& file);

// The bytes of a file that decodes to the image as it is: JPEG for what came from a JPEG file,
// otherwise PNG. Fails with kInvalidPicture.
[[nodiscard]] Bytes EncodePicture(const QImage& image, PictureFormat origin);

}  // namespace td
