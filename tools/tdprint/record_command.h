// The command record.
#pragma once

#include "arguments.h"

namespace td {

// Writes the scenario of a print; tells on standard error why not, or in what it prints otherwise.
ExitStatus RecordScenario(const RecordArguments& arguments);

}  // namespace td
