// The commands of tdprint that make the module QbTdPrinter known to programs, and unknown again.
#pragma once

#include "arguments.h"

namespace td {

// Both report on standard output what was written or removed.
ExitStatus RegisterModule(const RegisterArguments& arguments);
ExitStatus UnregisterModule(const UnregisterArguments& arguments);

}  // namespace td
