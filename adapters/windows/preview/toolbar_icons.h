// The toolbar's images on a device.
#pragma once

#include <string_view>

#include "windows/api/windows_api.h"

namespace td {

// Draws the image of a toolbar key into a square; nothing for an unknown key. Needs a
// GdiplusSession.
void DrawToolbarIcon(HDC device, std::string_view key, const RECT& square, bool isEnabled);

}  // namespace td
