// Pages as picture files.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "page_document/drawing.h"
#include "platform/failure.h"
#include "platform/pictures.h"

namespace td {

// The sides of a page's picture in pixels.
struct PictureSides {
  int width = 0;
  int height = 0;
};

// Fails with kInvalidCall for a resolution that isn't from 1 to 2400 dots per inch, and with
// kOutOfMemory for more than 400 megapixels.
[[nodiscard]] PictureSides PictureSidesOf(const Page& page, double dotsPerInch);

[[nodiscard]] Failure TooLargePicture();

// As WritePngPages does; `png` draws a page as a PNG file.
std::vector<std::string> WritePageFiles(const std::vector<Page>& pages, const std::string& folder,
                                        const std::function<Bytes(const Page& page)>& png);

}  // namespace td
