// Names for those who have a window read to them.
#pragma once

#include <string>

#include "windows/api/windows_api.h"

namespace td {

// What screen readers call a control that has no caption of its own. Where the system can't keep
// it, nothing happens.
void NameForScreenReaders(HWND control, const std::string& name);

}  // namespace td
