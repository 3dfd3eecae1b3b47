// Repairs for text that comes from outside: from a database, or from an engine's messages.
#pragma once

#include <string>
#include <string_view>

namespace td {

// The text with U+FFFD in place of each byte that is no part of valid UTF-8. A NUL stays.
[[nodiscard]] std::string ValidUtf8(std::string_view text);

// The text with the character 锁 replaced by its traditional form 鎖. A description with 锁 means
// "locked by another user, try again"; a name in a message must not be taken for that.
[[nodiscard]] std::string WithoutLockCharacter(std::string text);

}  // namespace td
