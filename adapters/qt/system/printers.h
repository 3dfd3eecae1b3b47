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

// Whether the printer takes sheets of any size. Not if it can't be asked.
[[nodiscard]] bool TakesAnySize(const std::string& printer);

// What a printer leaves empty along the edges of a sheet as it is fed, twips.
struct PrinterMargins {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};
// Those of its sheet of that size (IsSameSheet); of a size that it takes without having such a
// sheet the smallest that it has. Nothing if it has neither, or can't be asked.
[[nodiscard]] std::optional<PrinterMargins> MarginsOf(const std::string& printer,
                                                      const PaperExtent& extent);

// The printing system's own name of the sheet that a printer has for a size (IsSameSheet). Nothing
// if it has no such sheet or can't be asked.
[[nodiscard]] std::optional<std::string> SheetName(const std::string& printer,
                                                   const PaperExtent& extent);

}  // namespace td
