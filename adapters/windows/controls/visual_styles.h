// How the component's windows look, whatever the program that shows them asks for.
#pragma once

#include "windows/api/windows_api.h"

namespace td {

// While it lives, windows made on this thread have the controls of the user's own look, and are
// sharp on each monitor: they are measured in its pixels and told when they come to another one.
class WindowMaking {
 public:
  WindowMaking();
  ~WindowMaking();
  WindowMaking(const WindowMaking&) = delete;
  WindowMaking& operator=(const WindowMaking&) = delete;

 private:
  DPI_AWARENESS_CONTEXT formerAwareness_;
  ULONG_PTR styles_ = 0;
};

}  // namespace td
