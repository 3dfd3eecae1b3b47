// Amounts in Chinese capital numerals.
#pragma once

#include <string>

namespace td {

// A money amount as it is written on a bill, rounded to two decimals: 1005.3 gives
// 壹仟零伍圆叁角整. Fails with kOverflow if the amount is infinite or no number.
[[nodiscard]] std::string AmountInWords(double amount);

}  // namespace td
