// Making controls of the system, and their tooltips.
#pragma once

#include <string>

#include "windows/api/windows_api.h"

namespace td {

// A visible child; null if that fails.
[[nodiscard]] HWND MakeControl(HWND parent, const wchar_t* kind, const std::string& text,
                               DWORD style, int id = 0, DWORD extendedStyle = 0);

// The window in which tooltips appear, for controls with the same parent.
[[nodiscard]] HWND MakeToolTips(HWND parent, DWORD style = 0);
// A control's tooltip, which is none as long as it is empty.
void AddToolTip(HWND toolTips, HWND control, const std::string& text);
void PutToolTip(HWND toolTips, HWND control, const std::string& text);

}  // namespace td
