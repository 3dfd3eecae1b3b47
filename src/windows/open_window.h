// Makes a print window that answers its frame and its surface.
#pragma once

#include <memory>

#include "state/print_window.h"

namespace td {

// A window of that kind for `request`, not shown yet. Its load, its first activation and the
// buttons of its toolbar lead to the run.
[[nodiscard]] std::unique_ptr<PrintWindow> OpenWindow(Platform& platform, PrintContext& request,
                                                      const WindowKind& kind);

}  // namespace td
