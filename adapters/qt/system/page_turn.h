// How the printing system lays a page across a printer's sheet.
#pragma once

#include <string>

#include "calibration/calibration.h"

namespace td {

// By the printer's driver; with its top at the right edge where that says nothing.
[[nodiscard]] PageTurn TurnOf(const std::string& printer);

}  // namespace td
