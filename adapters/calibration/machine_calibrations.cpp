#include "calibration/machine_calibrations.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "calibration/calibration_file.h"

namespace td {
namespace {

constexpr const char* kPlace = "/qbtdprinter/calibration.json";

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

std::string UserFile() {
  if (const std::string folder = Environment("XDG_CONFIG_HOME"); folder.starts_with('/')) {
    return folder + kPlace;
  }
  const std::string home = Environment("HOME");
  return home.empty() ? std::string() : home + "/.config" + kPlace;
}

std::string MachineFile() {
  std::istringstream folders(Environment("XDG_CONFIG_DIRS"));
  std::string first;
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (!folder.starts_with('/')) continue;  // as the convention has it
    std::string file = folder + kPlace;
    std::error_code error;
    if (std::filesystem::exists(file, error)) return file;
    if (first.empty()) first = file;
  }
  return first.empty() ? std::string("/etc/xdg") + kPlace : first;
}

bool IsOf(const Calibration& calibration, const std::string& printer, const PaperExtent& sheet) {
  return calibration.printer == printer && IsSameSheet(SheetOf(calibration), sheet);
}

}  // namespace

CalibrationFiles CalibrationFiles::OfThisMachine() {
  return {UserFile(), MachineFile()};
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
