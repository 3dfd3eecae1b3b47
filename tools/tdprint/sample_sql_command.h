#pragma once

#include "arguments.h"

namespace td {

// Writes the sample database as a script; see WriteSampleScript.
ExitStatus WriteSampleSql(const SampleSqlArguments& arguments);

}  // namespace td
