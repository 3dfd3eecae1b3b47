// How much room texts take.
#pragma once

#include <string>
#include <string_view>

#include "windows/api/windows_api.h"

namespace td {

// Pixels of one line.
[[nodiscard]] SIZE TextSize(HFONT font, std::wstring_view text);
[[nodiscard]] SIZE TextSize(HDC device, std::wstring_view text);

// The text with as much of its middle left out, shown as "…", that it fits into a width.
[[nodiscard]] std::wstring WithoutMiddle(HDC device, std::wstring_view text, int width);

// What a window shows.
[[nodiscard]] std::wstring TextOf(HWND window);

}  // namespace td
