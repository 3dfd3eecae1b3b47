// The printers of this desktop, as the check asks for them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checker/machine.h"

namespace td::checker {

[[nodiscard]] std::vector<std::string> InstalledPrinters();
[[nodiscard]] std::string InstalledDefaultPrinter();  // empty: there is none

// Both: nothing where the printer doesn't say.
[[nodiscard]] std::optional<PaperExtent> InstalledSheet(const std::string& printer);
[[nodiscard]] std::optional<SheetMargins> InstalledMargins(const std::string& printer,
                                                           const PaperExtent& sheet);

}  // namespace td::checker
