#pragma once

namespace td {

struct PrintWindow;

// Shows the surface's page-setup dialog; if the user confirms, stores paper and printer for the
// format and for this machine and prints again. Has no handler: an error leaves the call, and the
// statements executed before it stay in force.
void PageSetup(PrintWindow& window);

}  // namespace td
