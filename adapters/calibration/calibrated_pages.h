// What makes up for how a printer misses the places on its sheets.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "calibration/calibration.h"

namespace td {

// For a job of these pages on a printer, by the calibrations of this machine
// (machine_calibrations.h); everything is looked up now. `turnOf` tells how the printer lays a page
// across its sheet, and is asked only if there is such a page. `complain` is told of a file that is
// not in order: its calibrations are not used then.
[[nodiscard]] PageCorrection CorrectionFor(
    const std::string& printer, const std::vector<Page>& pages,
    const std::function<LandscapeTurn(const std::string& printer)>& turnOf,
    const std::function<void(const std::string& text)>& complain);

}  // namespace td
