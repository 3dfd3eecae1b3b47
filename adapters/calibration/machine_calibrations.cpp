#include "calibration/machine_calibrations.h"

#include <algorithm>
#include <filesystem>

#include "calibration/calibration_file.h"
#include "files/path_text.h"
#include "files/user_files.h"

namespace td {
namespace {

std::string FileIn(const std::filesystem::path& folder) {
  return folder.empty() ? std::string() : TextOf(folder / "qbtdprinter" / "calibration.json");
}

std::string MachineFile() {
  const std::vector<std::filesystem::path> folders = MachineConfigFolders();
  for (const std::filesystem::path& folder : folders) {
    std::error_code error;
    if (std::string file = FileIn(folder); std::filesystem::exists(PathOf(file), error)) {
      return file;
    }
  }
  return folders.empty() ? std::string() : FileIn(folders.front());
}

bool IsOf(const Calibration& calibration, const std::string& printer, const PaperExtent& sheet) {
  return calibration.printer == printer && IsSameSheet(SheetOf(calibration), sheet);
}

}  // namespace

CalibrationFiles CalibrationFiles::OfThisMachine() {
  return {FileIn(UserConfigFolder()), MachineFile()};
}

const Calibration* FindCalibration(const std::vector<Calibration>& calibrations,
                                   const std::string& printer, const PaperExtent& sheet) {
  const auto found = std::ranges::find_if(
      calibrations, [&](const Calibration& one) { return IsOf(one, printer, sheet); });
  return found == calibrations.end() ? nullptr : &*found;
}

std::optional<Calibration> CalibrationInForce(
    const CalibrationFiles& files, const std::string& printer, const PaperExtent& sheet,
    const std::function<void(const std::string& why)>& onBrokenFile) {
  for (const std::string& file : {files.user, files.machine}) {
    if (file.empty()) continue;
    try {
      const std::vector<Calibration> calibrations = ReadCalibrations(file);
      if (const Calibration* found = FindCalibration(calibrations, printer, sheet)) return *found;
    } catch (const Failure& failure) {
      onBrokenFile(failure.Description());
    }
  }
  return std::nullopt;
}

void PutCalibration(const std::string& path, const Calibration& calibration) {
  std::vector<Calibration> calibrations = ReadCalibrations(path);
  std::erase_if(calibrations, [&](const Calibration& one) {
    return IsOf(one, calibration.printer, SheetOf(calibration));
  });
  calibrations.push_back(calibration);
  WriteCalibrations(path, calibrations);
}

bool RemoveCalibration(const std::string& path, const std::string& printer,
                       const PaperExtent& sheet) {
  std::vector<Calibration> calibrations = ReadCalibrations(path);
  const std::size_t removed = std::erase_if(
      calibrations, [&](const Calibration& one) { return IsOf(one, printer, sheet); });
  if (removed > 0) WriteCalibrations(path, calibrations);
  return removed > 0;
}

}  // namespace td
