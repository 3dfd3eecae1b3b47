// A table as it lies in memory.
#pragma once

#include <string>
#include <vector>

#include "platform/value.h"

namespace td::recording {

using Row = std::vector<Value>;

// Each row has one value for each column.
struct TableData {
  std::vector<std::string> columns;
  std::vector<Row> rows;
};

}  // namespace td::recording
