#include "sample_printing.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <vector>

#include "program_run.h"
#include "scratch_folder.h"

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

std::filesystem::path PrintedSample(SampleEngine engine, const SamplePrint& print,
                                    const std::string& option) {
  static const ScratchFolder scratch;
  static std::set<std::string> printed;
  const std::string name = NameOf(engine) + "-" + print.name + option;
  std::filesystem::path file = scratch / name;
  if (printed.contains(name)) return file;
  std::vector<std::string> command = {
      TDPRINT_PROGRAM,  "print",        "--db",
      SampleOn(engine), "--type",       std::to_string(print.billType),
      "--format",       print.format,   "--data",
      print.data,       "--blank-rows", std::to_string(print.blankRows),
      option,           file.string()};
  if (print.onlyVariant) command.push_back("--only-variant");
  if (print.byArea) command.push_back("--by-area");
  const ProgramResult result = ProgramRun(command, scratch.Path()).Finish();
  EXPECT_EQ(result.status, 0) << result.err;
  printed.insert(name);
  return file;
}

}  // namespace td
