// The system's errors, in its own words.
#pragma once

#include <string>

namespace td {

// What the system says of an error number, in UTF-8 and the user's language: "拒绝访问". The number
// itself where it says nothing.
[[nodiscard]] std::string SystemWords(unsigned long error);

}  // namespace td
