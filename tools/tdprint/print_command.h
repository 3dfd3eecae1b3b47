#pragma once

#include "arguments.h"

namespace td {

// Prints the bills that the arguments select, without a window. Outputs may be combined; every one
// that is named receives the document in the printer's place.
ExitStatus PrintBills(const PrintArguments& arguments);

}  // namespace td
