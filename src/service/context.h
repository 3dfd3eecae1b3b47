// The one request state of the process: whichever call came last wins, and a later Printer sees
// what an earlier one left. Below this room the request travels with the window that serves it.
#pragma once

#include "state/print_context.h"

namespace td {

[[nodiscard]] inline PrintContext& Context() {
  static PrintContext context;
  return context;
}

}  // namespace td
