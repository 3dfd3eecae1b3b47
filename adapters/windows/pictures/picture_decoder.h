// From the bytes of a picture file to a picture that every output can draw.
#pragma once

#include <memory>

#include "page_document/pictures.h"
#include "picture_headers/decoder_limits.h"

namespace td {

// Decodes a JPEG, PNG, BMP, GIF or TIFF file, known by its first bytes: the first picture or page
// in it. A JPEG file that is damaged, or ends, behind the beginning of its coded data is decoded as
// far as it goes. The picture keeps the bytes of the file, encoded anew when its orientation asks
// to turn it, or when it is damaged; and it takes the resolution that the file states, 96 dots per
// inch if it states none. Fails with kInvalidPicture when the file is none of these kinds, is
// damaged otherwise, ends too early, or is larger than the bounds.
[[nodiscard]] std::shared_ptr<const ImagePicture> MakePicture(Bytes file);

}  // namespace td
