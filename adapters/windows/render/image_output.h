// Pages as pictures.
#pragma once

#include <string>
#include <vector>

#include "page_document/drawing.h"
#include "windows/render/picture_pixels.h"

namespace td {

// The page on white paper. `dotsPerInch` is from 1 to 2400, else the call fails with kInvalidCall;
// an image above 400 megapixels fails with kOutOfMemory.
[[nodiscard]] Pixels RenderPage(const Page& page, double dotsPerInch);

// Writes page-001.png and so on into a folder, which is made if its parent exists, and removes the
// pages behind the last that a longer document left there. Returns the paths. Fails with
// kPathNotFound or kDeviceIo, and with kInvalidCall without pages.
std::vector<std::string> WritePngPages(const std::vector<Page>& pages, const std::string& folder,
                                       double dotsPerInch);

}  // namespace td
