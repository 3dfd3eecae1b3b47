// The component's windows on Windows.
#pragma once

#include "print_windows/desktop_windows.h"
#include "windows/system/print_frame.h"
#include "windows/system/windows_dialog.h"

namespace td {

using NativeWindows = DesktopWindows<NativePrintFrame, WindowsDialog>;

}  // namespace td
