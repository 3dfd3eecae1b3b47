// The rows of the component's tables that one print reads.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/database.h"
#include "recording/record_print.h"
#include "recording/table_data.h"

namespace td::recording {

// By table. A table that can't be read is left out, as it fails in the replay, too. `goods` are the
// numbers of the goods in the data.
[[nodiscard]] std::map<std::string, TableData> ReadTablesOfPrint(Database& database,
                                                                 const RecordedRequest& request,
                                                                 const std::vector<Value>& goods);

// The rows on which `rows` stand and those behind, with those of `columns` that there are.
[[nodiscard]] TableData ReadRows(Recordset& rows, const std::vector<std::string>& columns);

// Whether there is such a column, also behind the last row.
[[nodiscard]] bool HasColumn(Recordset& rows, const std::string& column);

}  // namespace td::recording
