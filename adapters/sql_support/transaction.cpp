#include "sql_support/transaction.h"

#include "text/conversions.h"

namespace td {

std::vector<KeyColumn> ReadKeyColumns(const MemoryRows& rows) {
  std::vector<KeyColumn> columns;
  Value name;
  Value isGenerated;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    rows.Read(row, 0, name);
    rows.Read(row, 1, isGenerated);
    columns.push_back({ToText(name), IsSet(isGenerated)});
  }
  return columns;
}

}  // namespace td
