// The file of calibrations: JSON, for people to read and mend.
#pragma once

#include <string>
#include <vector>

#include "calibration/calibration.h"
#include "platform/failure.h"

namespace td {

// The calibrations of a file; none if there is no such file. Fails with kDeviceIo, with the path
// and the reason in words, when it can't be read, and when anything in it is not in order: it is
// believed whole or not at all.
[[nodiscard]] std::vector<Calibration> ReadCalibrations(const std::string& path);

// Replaces the file whole or not at all, and makes its folder if that is missing. Fails with
// kDeviceIo likewise.
void WriteCalibrations(const std::string& path, const std::vector<Calibration>& calibrations);

}  // namespace td
