// What a printer's driver is set to for a job.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "page_document/paper.h"
#include "windows/api/windows_api.h"

namespace td {

// How a document is printed; what isn't chosen is as the printer is set.
struct JobOptions {
  int copies = 1;
  bool collated = true;
  // What a user has chosen in the dialogs of the system and of the driver, the tray, the sides and
  // the driver's own choices included; empty: as the printer is set. What it says of the sheet, the
  // copies and the orientation doesn't hold.
  std::vector<std::byte> settings;
};

class DriverSettings {
 public:
  // Those that a user has set for the printer; `chosen` takes their place if it isn't empty.
  explicit DriverSettings(const std::string& printer, const std::vector<std::byte>& chosen = {});

  // False if there is no such printer, or its driver fails.
  [[nodiscard]] bool IsKnown() const { return !mode_.empty(); }

  // Of the sheet, upright.
  [[nodiscard]] std::optional<PaperExtent> Sheet() const;
  // By the driver's own number where it has one for the sheet (FormNumber), else by its size.
  void PutSheet(const PaperExtent& sheet, std::int32_t code);
  void PutLandscape(bool landscape);
  // Returns how often the pages are to be sent: once if the driver makes all copies itself, in the
  // order that is wanted.
  [[nodiscard]] int PutOptions(const JobOptions& options);

  // As JobOptions has them.
  [[nodiscard]] const std::vector<std::byte>& Bytes() const { return mode_; }

  // For CreateDC and ResetDC. Good until the settings change.
  [[nodiscard]] const DEVMODEW* Mode() const {
    return reinterpret_cast<const DEVMODEW*>(mode_.data());
  }

 private:
  [[nodiscard]] DEVMODEW& Changed() { return *reinterpret_cast<DEVMODEW*>(mode_.data()); }
  void PutCopies(int copies);
  [[nodiscard]] bool MakesCopies(const JobOptions& options) const;
  // What the driver tells of itself; 0 where it doesn't.
  [[nodiscard]] int Ability(WORD which) const;
  // The driver completes what was changed, and takes back what it can't do.
  void Complete();

  std::string printer_;
  std::vector<std::byte> mode_;  // the system's structure, and the driver's own part behind it
};

}  // namespace td
