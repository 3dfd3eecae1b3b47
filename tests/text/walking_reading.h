// A second reading of amounts in capitals, written apart from the first to compare the two.
#pragma once

#include <string>

namespace td {

// The capitals of an amount with at most 16 digits before the point. Where the first reading
// rewrites a text, this one walks over the digits once.
[[nodiscard]] std::string WalkingReading(double amount);

}  // namespace td
