// The rows of a select statement.
#pragma once

#include "recording/memory_tables.h"
#include "recording/sql_syntax.h"
#include "recording/table_data.h"

namespace td::recording {

// Binds the columns of the statement.
[[nodiscard]] TableData RowsOf(Select& select, const MemoryTables& tables);

}  // namespace td::recording
