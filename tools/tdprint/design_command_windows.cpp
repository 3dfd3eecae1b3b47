#include "complaint.h"
#include "design_command.h"

namespace td {

const char* const kDesignHelp = "Not on Windows: formats are laid out with the designer on Linux";

ExitStatus DesignFormat(const DesignArguments& /*arguments*/) {
  Complain(
      "the designer isn't there on Windows",
      "lay the format out with tdprint on Linux; export-format and import-format carry it over");
  return ExitStatus::kWrongUsage;
}

}  // namespace td
