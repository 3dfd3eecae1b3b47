// Prints a sample as its user does: by the program, into a file.
#pragma once

#include <filesystem>
#include <string>

#include "program_run.h"
#include "sample_files.h"

namespace td {

// The folder of the sample in the source tree.
std::filesystem::path SampleFolder();

// The print of that name in the sample's list; throws std::out_of_range if there is none.
SamplePrint SampleNamed(const std::string& name);

// `option` says what to write: --pdf, --html, or --png for a folder. The program works in
// `scratch`.
ProgramResult PrintSample(const SamplePrint& print, const std::string& connection,
                          const std::string& option, const std::filesystem::path& file,
                          const std::filesystem::path& scratch);

}  // namespace td
