// What the command line asks for, done.
#pragma once

#include "arguments.h"
#include "exit_status.h"

namespace td {

ExitStatus RunCommand(const Command& command);

}  // namespace td
