// What the two print windows do differently with the scenario of side_by_side_test.cpp.
#pragma once

#include <string>
#include <vector>

#include "trace_difference.h"

namespace td {

// What the plain window does and the stock-area window doesn't, and the other way round.
struct NamedDifference {
  std::string name;
  std::vector<Hunk> hunks;
};

// In the order of the scenario's calls.
[[nodiscard]] const std::vector<NamedDifference>& NamedDifferences();

}  // namespace td
