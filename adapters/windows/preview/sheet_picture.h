// A small picture of a sheet with its margins.
#pragma once

#include "preview/page_setup_choice.h"
#include "windows/api/windows_api.h"

namespace td {

// The sheet as it is read, landscape or portrait. A sheet without an area shows nothing.
void DrawSheetPicture(HDC device, const RECT& box, const PageSetupChoice& choice, int dotsPerInch);

}  // namespace td
