// Numbers under pictures such as "#,##0.00".
#pragma once

#include <string>
#include <vector>

#include "text/decimal_digits.h"
#include "text/picture_sections.h"

namespace td {

// `number` under the section for its sign. What rounds to zero is zero, without a sign.
[[nodiscard]] std::string FormatNumber(const DecimalDigits& number,
                                       const std::vector<PictureSection>& sections);

// The fourth section, applied to 0; empty if there is none.
[[nodiscard]] std::string FormatNullNumber(const std::vector<PictureSection>& sections);

}  // namespace td
