// The code pages in which rich text writes characters as bytes.
#pragma once

#include <string>

namespace td {

// Bytes of a code page as UTF-8. What the code page doesn't hold becomes U+FFFD; a code page that
// the system doesn't know is taken for 1252.
[[nodiscard]] std::string FromCodePage(std::string bytes, int codePage);

}  // namespace td
