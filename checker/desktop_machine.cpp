#include "checker/desktop_machine.h"

#include "print_calls/printers.h"

namespace td::checker {

DesktopMachine::DesktopMachine(Platform& platform)
    : platform_(platform), barcodes_(ReadBarcodeSettings(BarcodeSettingsFile())) {}

std::vector<std::string> DesktopMachine::Printers() const {
  if (!printers_) printers_ = PrinterNames();
  return *printers_;
}

std::string DesktopMachine::DefaultPrinter() const {
  if (!defaultPrinter_) defaultPrinter_ = td::DefaultPrinter();
  return *defaultPrinter_;
}

std::string DesktopMachine::Id() const {
  return platform_.machine.LocalMachineId();
}

std::optional<PaperExtent> DesktopMachine::OwnSheet(const std::string& printer) const {
  const auto [sheet, isNew] = ownSheets_.try_emplace(printer);
  if (isNew) sheet->second = td::OwnSheet(printer);
  return sheet->second;
}

std::optional<SheetMargins> DesktopMachine::Margins(const std::string& printer,
                                                    const PaperExtent& sheet) const {
  return MarginsOf(printer, sheet);
}

bool DesktopMachine::Answers(const std::string& printer) const {
  return OwnSheet(printer).has_value();
}

}  // namespace td::checker
