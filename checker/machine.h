// What a format is checked against besides its rows: the machine that is to print it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "barcodes/barcode_settings.h"
#include "page_document/paper.h"
#include "page_document/sheet_margins.h"
#include "platform/pictures.h"

namespace td::checker {

class CheckedMachine {
 public:
  virtual ~CheckedMachine() = default;

  // Asked for once in a check.
  [[nodiscard]] virtual std::vector<std::string> Printers() const = 0;
  [[nodiscard]] virtual std::string DefaultPrinter() const = 0;  // empty: there is none
  [[nodiscard]] virtual std::string Id() const = 0;              // as in TDBill_PaperSize

  // Nothing where the printer doesn't say.
  [[nodiscard]] virtual std::optional<PaperExtent> OwnSheet(const std::string& printer) const = 0;
  // Nothing where the printer can't print on such a sheet, or doesn't say.
  [[nodiscard]] virtual std::optional<SheetMargins> Margins(const std::string& printer,
                                                            const PaperExtent& sheet) const = 0;
  // Whether the printer answers at all.
  [[nodiscard]] virtual bool Answers(const std::string& printer) const = 0;

  [[nodiscard]] virtual Pictures& PictureFiles() const = 0;
  [[nodiscard]] virtual BarcodeSettings Barcodes() const = 0;
};

}  // namespace td::checker
