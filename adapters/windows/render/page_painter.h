// Draws pages on devices: printers, windows and pictures in memory. Every output goes through
// DrawPage, so that an item lies at the same place in all of them.
#pragma once

#include "page_document/drawing.h"
#include "windows/api/windows_api.h"
#include "windows/render/device_space.h"

namespace td {

// Draws a page, through a map in its own twips if there is one. The device maps one unit to one of
// its pixels (MM_TEXT), and keeps what was selected into it. The paper is not painted.
void DrawPage(HDC device, const DevicePlace& place, const Page& page, const AffineMap& drawn = {});

}  // namespace td
