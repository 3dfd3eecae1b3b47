// The printers of this machine. Names are UTF-8 and compared exactly.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "page_document/paper.h"

namespace td {

// Installed ones and connections of the user to others, in the system's order, read afresh.
[[nodiscard]] std::vector<std::string> PrinterNames();

// The user's default printer, else the first one; empty if there is none.
[[nodiscard]] std::string DefaultPrinter();

[[nodiscard]] bool HasPrinter(const std::string& name);

// The first printer that a driver serves; empty if there is none.
[[nodiscard]] std::string PrinterOfDriver(const std::string& driver);

// Returns when the jobs have left the printing system, or nothing has become of them in a minute.
void WaitForJobs(const std::string& printer, const std::vector<int>& jobs);

// The sheet that a printer prints on when nobody chooses another. Nothing if there is no such
// printer, or if its driver doesn't say.
[[nodiscard]] std::optional<PaperExtent> OwnSheet(const std::string& printer);

}  // namespace td
