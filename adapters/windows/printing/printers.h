// What printing on Windows asks of the system besides print_calls/printers.h.
#pragma once

#include <string>
#include <vector>

#include "print_calls/printers.h"

namespace td {

// The first printer of this machine that a driver serves, whose name is found in any case; empty if
// there is none.
[[nodiscard]] std::string PrinterOfDriver(const std::string& driver);

// True when the jobs have left the printing system; false if it doesn't go on with them for a
// minute.
[[nodiscard]] bool WaitForJobs(const std::string& printer, const std::vector<int>& jobs);

}  // namespace td
