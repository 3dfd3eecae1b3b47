#include "sample_printing.h"

#include <stdexcept>
#include <vector>

namespace td {

std::filesystem::path SampleFolder() {
  return std::filesystem::path(QBTD_SOURCE_DIR) / "examples";
}

SamplePrint SampleNamed(const std::string& name) {
  for (const SamplePrint& print : ReadSamplePrints(SampleFolder())) {
    if (print.name == name) return print;
  }
  throw std::out_of_range("no sample " + name);
}

ProgramResult PrintSample(const SamplePrint& print, const std::string& connection,
                          const std::string& option, const std::filesystem::path& file,
                          const std::filesystem::path& scratch) {
  std::vector<std::string> command = {
      TDPRINT_PROGRAM, "print",        "--db",
      connection,      "--type",       std::to_string(print.billType),
      "--format",      print.format,   "--data",
      print.data,      "--blank-rows", std::to_string(print.blankRows),
      option,          file.string()};
  if (print.onlyVariant) command.push_back("--only-variant");
  if (print.byArea) command.push_back("--by-area");
  return ProgramRun(command, scratch).Finish();
}

}  // namespace td
