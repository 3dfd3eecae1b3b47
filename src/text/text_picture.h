// Texts under pictures such as "@@@-@@@@".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/picture_sections.h"

namespace td {

// `text` under the first section, or the second if it is empty and there is one.
[[nodiscard]] std::string FormatText(std::string_view text,
                                     const std::vector<PictureSection>& sections);

// The second section applied to the empty text; empty if there is none.
[[nodiscard]] std::string FormatNullText(const std::vector<PictureSection>& sections);

}  // namespace td
