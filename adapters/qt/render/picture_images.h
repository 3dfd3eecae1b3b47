// The pixels of picture files.
#pragma once

#include <QByteArray>
#include <QImage>

#include "page_document/pictures.h"

namespace td {

// The decoded picture; null if it doesn't decode. Pictures with the same bytes share one image, the
// latest ones staying in memory up to 64 megabytes, so that an output can store a repeated picture
// once.
[[nodiscard]] QImage DecodedImage(const ImagePicture& picture);

// Equal for pictures with the same bytes, and for no others.
[[nodiscard]] QByteArray ContentKey(const ImagePicture& picture);

// As a PNG file; empty if that fails.
[[nodiscard]] Bytes PngOf(const QImage& image);

[[nodiscard]] bool IsJpeg(const ImagePicture& picture);

}  // namespace td
