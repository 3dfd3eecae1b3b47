// Draws pages on devices: printers, windows and pictures in memory. Every output goes through
// DrawPage, so that an item lies at the same place in all of them.
#pragma once

#include "page_document/drawing.h"
#include "windows/api/windows_api.h"

namespace td {

// Where the page's top left corner lies on a device, and how many of its units a twip has. Each
// text, line and picture is placed to the nearest unit by itself, so that no rounding adds up.
struct DevicePlace {
  double x = 0;
  double y = 0;
  double scaleX = 1;
  double scaleY = 1;
};

// Draws a page. The device maps one unit to one of its pixels (MM_TEXT), and keeps what was
// selected into it. The paper is not painted.
void DrawPage(HDC device, const DevicePlace& place, const Page& page);

}  // namespace td
