// tdprint design: the designer of formats.
#pragma once

#include "arguments.h"

namespace td {

ExitStatus DesignFormat(const DesignArguments& arguments);

}  // namespace td
