// "tdprint log": looks prints up in a print log.
#pragma once

#include "arguments.h"

namespace td {

// Writes the prints that meet the question to standard output, and one line on standard error about
// what can't be read.
ExitStatus ShowLog(const LogArguments& arguments);

}  // namespace td
