// "tdprint calibrate": measures how a printer misses the places on a sheet, and keeps it.
#pragma once

#include "arguments.h"

namespace td {

// What the list of commands says of it.
extern const char* const kCalibrateHelp;

ExitStatus CalibratePrinter(const CalibrateArguments& arguments);

}  // namespace td
