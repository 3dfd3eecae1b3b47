// Rows for a run that has none of its own.
#pragma once

#include "platform/database.h"

namespace td::checker {

// `count` rows of one bill that have every column, with 1 in each.
[[nodiscard]] RecordsetRef SampleRows(int count);

}  // namespace td::checker
