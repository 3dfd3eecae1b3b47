// "tdprint calibrate": measures how a printer misses the places on a sheet, and keeps it.
#pragma once

#include "arguments.h"

namespace td {

ExitStatus CalibratePrinter(const CalibrateArguments& arguments);

}  // namespace td
