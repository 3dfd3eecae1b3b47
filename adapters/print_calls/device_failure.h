// Failures of printers, files and other devices.
#pragma once

#include <string>

#include "platform/failure.h"

namespace td {

// A failure whose description may hold names and words of other programs. The character 锁 would
// make its readers take it for a lock conflict, so its traditional form 鎖 stands in its place.
[[nodiscard]] Failure DeviceFailure(int number, std::string description);

}  // namespace td
