#include "checker/installed_printers.h"
#include "windows/printing/printer_margins.h"
#include "windows/printing/printers.h"

namespace td::checker {

std::vector<std::string> InstalledPrinters() {
  return PrinterNames();
}

std::string InstalledDefaultPrinter() {
  return DefaultPrinter();
}

std::optional<PaperExtent> InstalledSheet(const std::string& printer) {
  return OwnSheet(printer);
}

std::optional<SheetMargins> InstalledMargins(const std::string& printer, const PaperExtent& sheet) {
  const auto margins = MarginsOf(printer, sheet);
  if (!margins) return std::nullopt;
  return SheetMargins{margins->left, margins->top, margins->right, margins->bottom};
}

}  // namespace td::checker
