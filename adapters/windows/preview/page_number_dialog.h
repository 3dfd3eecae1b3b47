// The question for a page's number.
#pragma once

#include <cstdint>
#include <optional>

namespace td {

// Asks which of `count` pages to show, `shown` being proposed, and waits for the answer; nothing if
// the user cancelled.
[[nodiscard]] std::optional<std::int16_t> AskForPage(std::int16_t shown, std::int16_t count);

}  // namespace td
