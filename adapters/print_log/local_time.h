// The machine's local time. Moments are seconds since 1970 in Greenwich.
#pragma once

#include <cstdint>
#include <ctime>

namespace td {

// The parts of a moment in local time.
[[nodiscard]] std::tm LocalParts(std::int64_t moment);

// The moment of such parts; whether summer time holds is found out.
[[nodiscard]] std::int64_t MomentOfLocal(std::tm parts);

}  // namespace td
