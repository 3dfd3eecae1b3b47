// The font of the component's windows.
#pragma once

#include "windows/render/screen_device.h"

namespace td {

// The user's font for dialogs, in the size for a resolution. If it has no Chinese characters, a
// family that has them takes its place: what the system puts together would look arbitrary.
[[nodiscard]] FontOwner WindowFont(int dotsPerInch);

}  // namespace td
