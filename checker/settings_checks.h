// What concerns several formats, and what machines have set for them.
#pragma once

#include <vector>

#include "checker/finding.h"
#include "checker/machine.h"
#include "checker/stored_formats.h"

namespace td::checker {

// Formats of one name or one number, and which of a bill type is selected.
[[nodiscard]] std::vector<Finding> CheckSelection(const StoredFormats& stored,
                                                  const Selection& selection);

// The machines' papers and the printers of stock areas, those of the selected formats.
[[nodiscard]] std::vector<Finding> CheckMachines(const StoredFormats& stored,
                                                 const Selection& selection,
                                                 const CheckedMachine& machine);

}  // namespace td::checker
