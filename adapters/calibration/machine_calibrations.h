// The calibrations that hold for a user on this machine.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "calibration/calibration.h"

namespace td {

// Empty paths stand for no file.
struct CalibrationFiles {
  std::string user;     // goes before the machine's, printer by printer and sheet by sheet
  std::string machine;  // for all users

  // calibration.json in the folder qbtdprinter: the user's in UserConfigFolder(); the machine's in
  // the first of MachineConfigFolders() that has it, else in the first of them.
  [[nodiscard]] static CalibrationFiles OfThisMachine();
};

// The one of a printer and a sheet, if there is one. Names are compared exactly, sheets by
// IsSameSheet.
[[nodiscard]] const Calibration* FindCalibration(const std::vector<Calibration>& calibrations,
                                                 const std::string& printer,
                                                 const PaperExtent& sheet);

// What holds for a printer and a sheet. A file that is not in order is passed over, and
// `onBrokenFile` told why.
[[nodiscard]] std::optional<Calibration> CalibrationInForce(
    const CalibrationFiles& files, const std::string& printer, const PaperExtent& sheet,
    const std::function<void(const std::string& why)>& onBrokenFile);

// Puts a calibration into a file, in the place of the one of that printer and sheet. Fails as
// ReadCalibrations and WriteCalibrations do; a broken file stays as it is.
void PutCalibration(const std::string& path, const Calibration& calibration);

// False if the file has none of that printer and sheet. Fails likewise.
bool RemoveCalibration(const std::string& path, const std::string& printer,
                       const PaperExtent& sheet);

}  // namespace td
