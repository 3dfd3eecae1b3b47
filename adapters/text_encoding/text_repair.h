// The repair of text that comes from outside: from a database, or from an engine's messages.
#pragma once

#include <string>
#include <string_view>

namespace td {

[[nodiscard]] bool IsValidUtf8(std::string_view text);

// The text with U+FFFD in place of each byte that is no part of valid UTF-8. A NUL stays.
[[nodiscard]] std::string ValidUtf8(std::string_view text);

}  // namespace td
