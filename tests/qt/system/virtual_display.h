// A display of the test's own.
#pragma once

#include <sys/types.h>

namespace td {

// Starts an X server that shows nothing, and names it in the environment. It ends with this object.
class VirtualDisplay {
 public:
  VirtualDisplay();
  ~VirtualDisplay();
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;

 private:
  pid_t server_ = -1;
};

}  // namespace td
