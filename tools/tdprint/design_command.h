// tdprint design: the designer of formats.
#pragma once

#include "arguments.h"

namespace td {

// What the list of commands says of it.
extern const char* const kDesignHelp;

ExitStatus DesignFormat(const DesignArguments& arguments);

}  // namespace td
