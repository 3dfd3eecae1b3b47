// What a session says of its last print call.
#pragma once

#include <cstdint>

#include "module/session_print.h"
#include "platform/value.h"

namespace td {

// The value of a property, of those from kDelivered on.
[[nodiscard]] Value Answer(std::int32_t member, const SessionResult& result);

// The same before the first call: there is no result yet.
[[nodiscard]] Value AnswerBefore(std::int32_t member);

}  // namespace td
