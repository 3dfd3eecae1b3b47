// How the component's windows look and are measured, whatever the program that shows them asks for.
#pragma once

#include "windows/api/windows_api.h"

namespace td {

// While it lives, this thread gives and gets places of windows in the pixels of their monitors; or
// in those that a program of another awareness is told of.
class DpiAwareness {
 public:
  explicit DpiAwareness(DPI_AWARENESS_CONTEXT wanted = DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2)
      : former_(SetThreadDpiAwarenessContext(wanted)) {}
  ~DpiAwareness() {
    if (former_ != nullptr) SetThreadDpiAwarenessContext(former_);
  }
  DpiAwareness(const DpiAwareness&) = delete;
  DpiAwareness& operator=(const DpiAwareness&) = delete;

 private:
  DPI_AWARENESS_CONTEXT former_;
};

// A length in pixels at 96 dots per inch, as it is at a resolution.
[[nodiscard]] inline int Scaled(int pixels, int dotsPerInch) {
  return MulDiv(pixels, dotsPerInch, 96);
}

// While it lives, windows made on this thread have the controls of the user's own look, and are
// sharp on each monitor: they are measured in its pixels and told when they come to another one.
class WindowMaking {
 public:
  WindowMaking();
  ~WindowMaking();
  WindowMaking(const WindowMaking&) = delete;
  WindowMaking& operator=(const WindowMaking&) = delete;

 private:
  DpiAwareness inPixelsOfTheMonitor_;
  ULONG_PTR styles_ = 0;
};

}  // namespace td
