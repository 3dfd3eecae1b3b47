// The one request of the process. Below this room it travels with the window that serves it.
#pragma once

#include "platform/platform.h"
#include "state/print_context.h"

namespace td {

// Its state: whichever call came last wins, and a later Printer sees what an earlier one left.
[[nodiscard]] PrintContext& Context();

// The turn of a print or a dialog: one at a time in the process, on the thread of its platform.
class Turn {
 public:
  // Fails with kWrongThread on another thread than the platform's, and with kInvalidCall while
  // another request lives.
  explicit Turn(const Platform& platform);
  ~Turn();
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
};

}  // namespace td
