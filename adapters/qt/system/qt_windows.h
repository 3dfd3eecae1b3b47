// The component's windows on Qt.
#pragma once

#include "print_windows/desktop_windows.h"
#include "qt/system/print_frame.h"
#include "qt/system/qt_dialog.h"

namespace td {

// Needs EnsureApplication().
using QtWindows = DesktopWindows<QtPrintFrame, QtDialog>;

}  // namespace td
