// Prints a sample as its user does: by the program, into a file.
#pragma once

#include <filesystem>
#include <string>

#include "sample_engine.h"
#include "sample_files.h"

namespace td {

// The folder of the sample in the source tree.
std::filesystem::path SampleFolder();

// The print of that name in the sample's list; throws std::out_of_range if there is none.
SamplePrint SampleNamed(const std::string& name);

// Prints a sample by the program into a file of its own; once for all tests of a process that ask
// for it. `option` says what to write: --pdf, --html, or --png for a folder. A print that doesn't
// end well fails the test.
std::filesystem::path PrintedSample(SampleEngine engine, const SamplePrint& print,
                                    const std::string& option);

}  // namespace td
