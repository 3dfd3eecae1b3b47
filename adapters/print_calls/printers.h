// The printers of this machine. Each desktop asks its own printing system. Names are UTF-8 and
// compared exactly.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "calibration/calibration.h"
#include "page_document/paper.h"
#include "page_document/sheet_margins.h"

namespace td {

// In the printing system's order, read afresh. Empty when it has none or can't be reached.
[[nodiscard]] std::vector<std::string> PrinterNames();

// The user's or the system's default, or the first printer when none is chosen. Empty when there is
// no printer.
[[nodiscard]] std::string DefaultPrinter();

[[nodiscard]] bool HasPrinter(const std::string& name);

// The sheet that a printer prints on when nobody chooses another. Nothing if there is no such
// printer, or if it doesn't say.
[[nodiscard]] std::optional<PaperExtent> OwnSheet(const std::string& printer);

// What a printer leaves empty on its sheet of that size (IsSameSheet), as it is fed. Where the
// printing system tells of sizes that a printer takes without having such a sheet, the smallest
// margins that it has. Nothing if there is neither, or it can't be asked.
[[nodiscard]] std::optional<SheetMargins> MarginsOf(const std::string& printer,
                                                    const PaperExtent& sheet);

// How the printing system or the driver lays a page across the printer's sheet; as most of its kind
// do where it doesn't say.
[[nodiscard]] LandscapeTurn TurnOf(const std::string& printer);

}  // namespace td
