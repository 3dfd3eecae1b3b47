// Counters of a fixed width that fail instead of wrapping around.
#pragma once

#include <cstdint>
#include <limits>

#include "platform/standard_failures.h"

namespace td {

// Adds `amount` to `counter` (std::int16_t or std::int32_t). Fails with kOverflow outside the
// counter's range and leaves the counter as it was.
template <typename Counter>
void AddChecked(Counter& counter, int amount) {
  static_assert(sizeof(Counter) < sizeof(std::int64_t));
  const std::int64_t sum = std::int64_t{counter} + amount;
  if (sum < std::numeric_limits<Counter>::min() || sum > std::numeric_limits<Counter>::max()) {
    throw OverflowFailure();
  }
  counter = static_cast<Counter>(sum);
}

}  // namespace td
