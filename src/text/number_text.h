// Numbers as they are written in texts.
#pragma once

#include <optional>
#include <string_view>

namespace td {

// The number at the start of `text`: leading blanks, sign, digits, one point, exponent; 0 if there
// is none. Fails with kOverflow beyond the range of a double; what is too small is 0.
[[nodiscard]] double LeadingNumber(std::string_view text);

// The number that `text` is as a whole, with blanks around it and commas that group the digits
// before the point by threes allowed; nothing if it is none. Fails like LeadingNumber.
[[nodiscard]] std::optional<double> WholeNumberText(std::string_view text);

}  // namespace td
