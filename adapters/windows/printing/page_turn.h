// How a printer's driver lays a page across its sheet.
#pragma once

#include <string>

#include "calibration/calibration.h"

namespace td {

// With its top at the left edge where the driver says nothing.
[[nodiscard]] PageTurn TurnOf(const std::string& printer);

}  // namespace td
