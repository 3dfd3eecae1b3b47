// A print or a dialog, which run one at a time.
#pragma once

#include "module/component.h"

namespace td {

// Lives as long as the request. Fails with kInvalidCall while another one lives.
class Request {
 public:
  Request() { Component::Get().BeginRequest(); }
  ~Request() { Component::Get().EndRequest(); }
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;

  [[nodiscard]] Platform& ThePlatform() const { return Component::Get().ThePlatform(); }
};

}  // namespace td
