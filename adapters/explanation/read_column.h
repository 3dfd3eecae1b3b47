// A column as it was when the run read it.
#pragma once

#include <string>
#include <string_view>

#include "platform/database.h"

namespace td {

struct ReadColumnState {
  enum class Found { kMissing, kNull, kEmpty, kValue, kUnknown };

  bool isData = false;  // of the print data or their parked clone; else of the component's tables
  std::string column;
  Found found = Found::kUnknown;
};

// Looks the column up in the row on which `rows` stand. Never fails.
[[nodiscard]] ReadColumnState::Found FindColumn(Recordset& rows, std::string_view column);

}  // namespace td
