// The formats that have a name instead of a picture.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/value.h"
#include "text/format_value.h"

namespace td {

// `value` under a named format, the name in any case; nothing if there is no such name. Null gives
// the empty text, and a value of which the format can make nothing its plain text.
[[nodiscard]] std::optional<std::string> FormatNamed(const Value& value, std::string_view name,
                                                     FormatLanguage language);

}  // namespace td
