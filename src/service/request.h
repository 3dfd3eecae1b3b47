// A print or a dialog: one at a time in the process, on the thread of its platform.
#pragma once

#include "platform/platform.h"

namespace td {

class Request {
 public:
  // Fails with kWrongThread on another thread than the platform's, and with kInvalidCall while
  // another request lives.
  explicit Request(const Platform& platform);
  ~Request();
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;
};

}  // namespace td
