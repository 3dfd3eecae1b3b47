// Pages as pictures.
#pragma once

#include "page_document/drawing.h"
#include "windows/render/picture_pixels.h"

namespace td {

// The page on white paper. `dotsPerInch` is from 1 to 2400, else the call fails with kInvalidCall;
// an image above 400 megapixels fails with kOutOfMemory.
[[nodiscard]] Pixels RenderPage(const Page& page, double dotsPerInch);

}  // namespace td
