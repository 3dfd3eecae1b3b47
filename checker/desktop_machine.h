// The machine that the check runs on.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "checker/machine.h"
#include "platform/platform.h"

namespace td::checker {

// The printing system is asked when an answer is needed, once for each. The pictures and the
// machine are those of a platform, which outlives this object.
class DesktopMachine : public CheckedMachine {
 public:
  explicit DesktopMachine(Platform& platform);

  [[nodiscard]] std::vector<std::string> Printers() const override;
  [[nodiscard]] std::string DefaultPrinter() const override;
  [[nodiscard]] std::string Id() const override;
  [[nodiscard]] std::optional<PaperExtent> OwnSheet(const std::string& printer) const override;
  [[nodiscard]] std::optional<SheetMargins> Margins(const std::string& printer,
                                                    const PaperExtent& sheet) const override;
  [[nodiscard]] bool Answers(const std::string& printer) const override;
  [[nodiscard]] Pictures& PictureFiles() const override { return platform_.pictures; }
  [[nodiscard]] BarcodeSettings Barcodes() const override { return barcodes_; }

 private:
  Platform& platform_;
  BarcodeSettings barcodes_;
  mutable std::optional<std::vector<std::string>> printers_;
  mutable std::optional<std::string> defaultPrinter_;
  mutable std::map<std::string, std::optional<PaperExtent>> ownSheets_;
};

}  // namespace td::checker
