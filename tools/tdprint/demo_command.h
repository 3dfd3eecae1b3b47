#pragma once

#include "arguments.h"

namespace td {

// Makes the sample database in a folder, prints every bill of the sample into it as PDF, PNG and
// HTML, sends the first to a printer if one is named, and says on standard output where all is.
ExitStatus MakeDemo(const DemoArguments& arguments);

}  // namespace td
