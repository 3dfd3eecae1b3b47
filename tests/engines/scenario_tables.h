// The tables of a scenario in a real database.
#pragma once

#include "recording/json_values.h"
#include "sample_engine.h"

namespace td {

// Puts the tables in the place of the sample's tables of the same names; RenewSample brings those
// back.
void MakeTables(const recording::Json& tables, SampleEngine engine);

}  // namespace td
