#pragma once

#include "arguments.h"

namespace td {

// Writes the findings on a database's formats to standard output. A failure writes one line on
// standard error.
ExitStatus CheckFormats(const CheckArguments& arguments);

}  // namespace td
