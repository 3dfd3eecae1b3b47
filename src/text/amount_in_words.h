// Amounts in Chinese capital numerals.
#pragma once

#include <string>

namespace td {

// A money amount as it is written on a bill: 1005.3 gives 壹仟零伍圆叁角整.
[[nodiscard]] std::string AmountInWords(double amount);

}  // namespace td
