// The printers of this machine, as the printing system knows them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "page_document/paper.h"

namespace td {

// In the printing system's order. Empty when it has none or can't be reached.
[[nodiscard]] std::vector<std::string> PrinterNames();

// The user's or the system's default, or the first printer when none is chosen. Empty when there is
// no printer.
[[nodiscard]] std::string DefaultPrinter();

// Names are compared exactly.
[[nodiscard]] bool HasPrinter(const std::string& name);

// The sheet that the user, or else the system, has chosen for a printer. Nothing if it doesn't say,
// or can't be asked.
[[nodiscard]] std::optional<PaperExtent> OwnSheet(const std::string& printer);

// The printing system's own name of the sheet that a printer has for a size. Sides that differ by
// up to 0.2 mm are the same size: a page is centred on its sheet, so that nothing on it then lies
// more than 0.1 mm beside its place. Nothing if it has no such sheet or can't be asked.
[[nodiscard]] std::optional<std::string> SheetName(const std::string& printer,
                                                   const PaperExtent& extent);

}  // namespace td
