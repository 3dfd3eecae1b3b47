#include "calibrate_command.h"
#include "complaint.h"

namespace td {

const char* const kCalibrateHelp = "Not on Windows: printers are calibrated on Linux";

ExitStatus CalibratePrinter(const CalibrateArguments& /*arguments*/) {
  Complain("printers aren't calibrated on Windows",
           "the fine tuning of a format shifts its prints on this machine");
  return ExitStatus::kWrongUsage;
}

}  // namespace td
